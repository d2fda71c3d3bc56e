#include "phone/package/settings_pane.h"

#include <string>
#include <string_view>

#include "hooks/settings_schema.h"

namespace tessel::package {

namespace {

plist_t stringNode(std::string_view text) { return plist_new_string(std::string(text).c_str()); }

void set(plist_t dict, std::string_view key, plist_t value) {
  plist_dict_set_item(dict, std::string(key).c_str(), value);
}

plist_t cell(std::string_view kind) {
  plist_t item = plist_new_dict();
  set(item, "cell", stringNode(kind));
  return item;
}

plist_t group(std::string_view footer) {
  plist_t item = cell("PSGroupCell");
  set(item, "footerText", stringNode(footer));
  return item;
}

// What every stored setting's row carries: where the value lives, its
// default until the user changes it, and the notification that tells the
// running extension to read it again.
plist_t storedSetting(std::string_view kind, std::string_view label, std::string_view key, plist_t defaultValue) {
  plist_t item = cell(kind);
  set(item, "label", stringNode(label));
  set(item, "defaults", stringNode(settings::kDomain));
  set(item, "key", stringNode(key));
  set(item, "default", defaultValue);
  set(item, "PostNotification", stringNode(settings::kChangedNotification));
  return item;
}

plist_t switchRow(const settings::BooleanSetting& setting) {
  return storedSetting("PSSwitchCell", setting.label, setting.key, plist_new_bool(setting.defaultValue));
}

plist_t activationList() {
  const auto& setting = settings::kActivationMethod;
  plist_t item = storedSetting("PSLinkListCell", setting.label, setting.key,
                               plist_new_uint(static_cast<uint64_t>(setting.defaultValue)));
  // The Settings app's stock controller for picking one value from a list.
  set(item, "detail", stringNode("PSListItemsController"));
  plist_t values = plist_new_array();
  plist_t titles = plist_new_array();
  plist_t shortTitles = plist_new_array();
  for (const auto& choice : settings::kActivationChoices) {
    plist_array_append_item(values, plist_new_uint(static_cast<uint64_t>(choice.code)));
    plist_array_append_item(titles, stringNode(choice.title));
    plist_array_append_item(shortTitles, stringNode(choice.shortTitle));
  }
  set(item, "validValues", values);
  set(item, "validTitles", titles);
  set(item, "shortTitles", shortTitles);
  return item;
}

}  // namespace

OwnedPlist makeSettingsPane() {
  plist_t entry = cell("PSLinkCell");
  set(entry, "label", stringNode(settings::kPaneTitle));

  plist_t items = plist_new_array();
  plist_array_append_item(items, group(settings::kEnabled.footer));
  plist_array_append_item(items, switchRow(settings::kEnabled));
  plist_array_append_item(items, group(settings::kDarkMode.footer));
  plist_array_append_item(items, switchRow(settings::kDarkMode));
  plist_array_append_item(items, group(settings::kActivationMethod.footer));
  plist_array_append_item(items, activationList());

  OwnedPlist root(plist_new_dict());
  set(root.get(), "title", stringNode(settings::kPaneTitle));
  set(root.get(), "entry", entry);
  set(root.get(), "items", items);
  return root;
}

}  // namespace tessel::package
