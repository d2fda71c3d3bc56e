#include <string>

#include "hooks/library.h"
#include "hooks/settings_schema.h"

namespace tessel {

void Library::readSettings() {
  auto file = context_.host.dictionaryWithContentsOfFile(std::string(settings::kPath));
  auto& state = context_.state;
  // A value with no boolean or integer reading counts as absent.
  state.darkMode = file->objectForKey(settings::kDarkMode.key)->boolValue().value_or(settings::kDarkMode.defaultValue);
  state.activationMethod = file->objectForKey(settings::kActivationMethod.key)
                               ->intValue()
                               .value_or(settings::kActivationMethod.defaultValue);
  const auto enabled = settings::kEnabled;
  enabledPreference_ = file->objectForKey(enabled.key)
                           ? file->objectForKey(enabled.key)->boolValue().value_or(enabled.defaultValue)
                           : enabled.defaultValue;
}

void Library::settingsChanged() {
  readSettings();
  // Adds the now-current gesture; the earlier ones stay attached.
  registerAllApplications();
}

}  // namespace tessel
