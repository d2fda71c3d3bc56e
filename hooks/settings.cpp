#include "controller/host_lookup.h"
#include "hooks/library.h"
#include "hooks/replacements.h"

namespace tessel {

void readSettings() {
  auto settings = hostRef().dictionaryWithContentsOfFile(kSettingsPath);
  auto& state = shared();
  // A value with no boolean or integer reading counts as absent.
  state.darkMode = settings->objectForKey("darkMode")->boolValue().value_or(true);
  state.activationMethod = settings->objectForKey("activationMethod")->intValue().value_or(0);
  module().enabledPreference =
      settings->objectForKey("enabled") ? settings->objectForKey("enabled")->boolValue().value_or(true) : true;
}

void settingsChanged() {
  readSettings();
  // Adds the now-current gesture; the earlier ones stay attached.
  hooks::registerAllApplications();
}

}  // namespace tessel
