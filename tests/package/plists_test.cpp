// The two property lists the package carries: the loader filter and the
// Settings app's pane, read back from the built package.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "hooks/settings_schema.h"
#include "tests/package/built_package.h"
#include "tests/package/plist_reading.h"

namespace tessel::package_test {
namespace {

ParsedPlist packagedPlist(const char* path) { return parseXmlPlist(readFile(builtPackage().extracted / path)); }

constexpr const char* kFilterPath = "Library/MobileSubstrate/DynamicLibraries/TesselLite.plist";
constexpr const char* kPanePath = "Library/PreferenceLoader/Preferences/TesselLite.plist";

std::string generator(const std::string& arguments) { return quoted(TESSEL_SETTINGS_PANE_EXE) + " " + arguments; }

void expectStoredSetting(plist_t item, std::string_view key) {
  EXPECT_EQ(stringOf(at(item, "defaults")), settings::kDomain) << key;
  EXPECT_EQ(stringOf(at(item, "key")), key);
  EXPECT_EQ(stringOf(at(item, "PostNotification")), settings::kChangedNotification) << key;
  EXPECT_NE(stringOf(at(item, "label")), "<not a string>") << key;
}

void expectSwitch(plist_t item, const settings::BooleanSetting& setting) {
  EXPECT_EQ(stringOf(at(item, "cell")), "PSSwitchCell") << setting.key;
  expectStoredSetting(item, setting.key);
  plist_t value = at(item, "default");
  ASSERT_EQ(plist_get_node_type(value), PLIST_BOOLEAN) << setting.key;
  uint8_t on = 2;
  plist_get_bool_val(value, &on);
  EXPECT_EQ(on != 0, setting.defaultValue) << setting.key;
}

void expectGroup(plist_t item, std::string_view footer) {
  EXPECT_EQ(stringOf(at(item, "cell")), "PSGroupCell");
  EXPECT_FALSE(footer.empty());
  EXPECT_EQ(stringOf(at(item, "footerText")), footer);
}

uint64_t unsignedOf(plist_t node) {
  uint64_t value = UINT64_MAX;
  if (plist_get_node_type(node) == PLIST_UINT) plist_get_uint_val(node, &value);
  return value;
}

TEST(LoaderFilter, InjectsIntoTheHomeScreenOnly) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const auto filter = packagedPlist(kFilterPath);
  ASSERT_TRUE(filter) << "not an XML property list";
  EXPECT_EQ(countOf(filter.get()), 1u);
  plist_t inner = at(filter.get(), "Filter");
  EXPECT_EQ(countOf(inner), 1u) << "only Bundles may narrow the filter";
  EXPECT_EQ(stringsOf(at(inner, "Bundles")), std::vector<std::string>{"com.apple.springboard"});
}

TEST(SettingsPane, EntryOpensTheTesselPane) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const auto pane = packagedPlist(kPanePath);
  ASSERT_TRUE(pane) << "not an XML property list";
  plist_t entry = at(pane.get(), "entry");
  EXPECT_EQ(stringOf(at(entry, "cell")), "PSLinkCell");
  EXPECT_EQ(stringOf(at(entry, "label")), "Tessel");
  EXPECT_EQ(stringOf(at(pane.get(), "title")), "Tessel");
}

TEST(SettingsPane, ItemsMatchTheSettings) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const auto pane = packagedPlist(kPanePath);
  ASSERT_TRUE(pane);
  plist_t items = at(pane.get(), "items");
  ASSERT_EQ(countOf(items), 6u);

  expectGroup(at(items, 0u), settings::kEnabled.footer);
  expectSwitch(at(items, 1u), settings::kEnabled);
  expectGroup(at(items, 2u), settings::kDarkMode.footer);
  expectSwitch(at(items, 3u), settings::kDarkMode);
  expectGroup(at(items, 4u), settings::kActivationMethod.footer);

  plist_t activation = at(items, 5u);
  EXPECT_EQ(stringOf(at(activation, "cell")), "PSLinkListCell");
  expectStoredSetting(activation, settings::kActivationMethod.key);
  EXPECT_EQ(unsignedOf(at(activation, "default")), static_cast<uint64_t>(settings::kActivationMethod.defaultValue));
}

TEST(SettingsPane, ActivationListOffersEveryGestureInWords) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const auto pane = packagedPlist(kPanePath);
  ASSERT_TRUE(pane);
  plist_t activation = at(at(pane.get(), "items"), 5u);
  EXPECT_EQ(stringOf(at(activation, "detail")), "PSListItemsController");

  plist_t values = at(activation, "validValues");
  const auto titles = stringsOf(at(activation, "validTitles"));
  const auto shortTitles = stringsOf(at(activation, "shortTitles"));
  ASSERT_EQ(countOf(values), settings::kActivationChoices.size());
  ASSERT_EQ(titles.size(), settings::kActivationChoices.size());
  ASSERT_EQ(shortTitles.size(), settings::kActivationChoices.size());
  // The extension knows codes 0 to 4 and alerts on any other.
  for (uint32_t i = 0; i < countOf(values); ++i) {
    EXPECT_EQ(unsignedOf(at(values, i)), i);
    EXPECT_EQ(titles[i], settings::kActivationChoices[i].title);
    EXPECT_EQ(shortTitles[i], settings::kActivationChoices[i].shortTitle);
  }
  EXPECT_EQ(std::set<std::string>(titles.begin(), titles.end()).size(), titles.size()) << "two choices read alike";
}

TEST(SettingsPane, StoresWhereTheExtensionReads) {
  // The Settings app writes domain D to /User/Library/Preferences/D.plist.
  EXPECT_EQ(std::string(settings::kPath), "/User/Library/Preferences/" + std::string(settings::kDomain) + ".plist");
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const std::string pane = readFile(builtPackage().extracted / kPanePath);
  EXPECT_NE(pane.find("<string>com.orvalt.tessel/preferencesChanged</string>"), std::string::npos);
  EXPECT_NE(pane.find("<string>com.orvalt.tessellite</string>"), std::string::npos);
}

// A switch that shows "off" for a key the file lacks would misstate what the
// running extension does: it reads a missing key as enabled, dark, swipe up.
TEST(SettingsPane, DefaultsAreWhatTheExtensionAssumesWhenUnset) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const auto pane = packagedPlist(kPanePath);
  ASSERT_TRUE(pane);
  std::map<std::string, std::string> defaults;
  plist_t items = at(pane.get(), "items");
  for (uint32_t i = 0; i < countOf(items); ++i) {
    plist_t value = at(at(items, i), "default");
    if (plist_get_node_type(value) == PLIST_BOOLEAN) {
      uint8_t on = 0;
      plist_get_bool_val(value, &on);
      defaults[stringOf(at(at(items, i), "key"))] = on ? "true" : "false";
    } else if (value != nullptr) {
      defaults[stringOf(at(at(items, i), "key"))] = std::to_string(unsignedOf(value));
    }
  }
  const std::map<std::string, std::string> expected = {
      {"enabled", "true"}, {"darkMode", "true"}, {"activationMethod", "0"}};
  EXPECT_EQ(defaults, expected);
}

TEST(SettingsPane, GeneratorOutputIsStable) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  for (const auto& [what, packaged] : {std::pair{"pane", kPanePath}, std::pair{"filter", kFilterPath}}) {
    const auto first = run(generator(what));
    const auto second = run(generator(what));
    ASSERT_EQ(first.exitStatus, 0) << what;
    EXPECT_FALSE(first.output.empty()) << what;
    EXPECT_EQ(first.output, second.output) << what;
    EXPECT_EQ(first.output, readFile(builtPackage().extracted / packaged)) << what;
  }
}

TEST(SettingsPane, GeneratorRefusesAnUnknownRequest) {
  const auto result = run(generator("settings 2>&1"));
  EXPECT_EQ(result.exitStatus, 2);
  EXPECT_NE(result.output.find("usage: tessel-settings-pane pane|filter"), std::string::npos) << result.output;
}

}  // namespace
}  // namespace tessel::package_test
