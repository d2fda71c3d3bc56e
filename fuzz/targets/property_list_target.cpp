#include "fuzz/targets/property_list_target.h"

#include <string>

#include "fuzz/targets/scratch_directory.h"
#include "hooks/settings_schema.h"
#include "sim/property_list.h"
#include "sim/sim_host.h"

namespace tessel::fuzz {

namespace {

sim::SimHost& phone() {
  static sim::SimHost host(sim::WorldConfig{}, (scratchDirectory() / "phone").string());
  return host;
}

SettingsReading readThroughHost() {
  auto file = phone().dictionaryWithContentsOfFile(std::string(settings::kPath));
  SettingsReading reading;
  reading.dictionary = static_cast<bool>(file);
  reading.enabled = file->objectForKey(settings::kEnabled.key)->boolValue();
  reading.darkMode = file->objectForKey(settings::kDarkMode.key)->boolValue();
  reading.activationMethod = file->objectForKey(settings::kActivationMethod.key)->intValue();
  return reading;
}

std::string describe(const std::optional<bool>& value) { return value ? (*value ? "true" : "false") : "nothing"; }
std::string describe(const std::optional<std::int32_t>& value) { return value ? std::to_string(*value) : "nothing"; }

}  // namespace

SettingsReading readSettingsFile(std::string_view bytes) {
  writeScratchFile(phone().localPath(std::string(settings::kPath)), bytes);
  return readThroughHost();
}

std::optional<std::string> settingsReadingProblem(const SettingsReading& reading) {
  if (!reading.dictionary) {
    if (reading.enabled || reading.darkMode || reading.activationMethod) {
      return "a file that gave no dictionary still gave a setting";
    }
    return std::nullopt;
  }
  // What the library makes of the file, written back by the settings pane,
  // must read the same: missing settings take their defaults.
  sim::WorldConfig::Settings values{reading.enabled.value_or(settings::kEnabled.defaultValue),
                                    reading.darkMode.value_or(settings::kDarkMode.defaultValue),
                                    reading.activationMethod.value_or(settings::kActivationMethod.defaultValue)};
  if (!sim::writeSettingsFile(phone().localPath(std::string(settings::kPath)), values)) {
    return "the settings pane could not write the settings back";
  }
  SettingsReading again = readThroughHost();
  if (!again.dictionary || again.enabled != values.enabled || again.darkMode != values.darkMode ||
      again.activationMethod != static_cast<std::int32_t>(values.activationMethod)) {
    return "written back and read again, the settings changed: enabled " + describe(again.enabled) + ", darkMode " +
           describe(again.darkMode) + ", activationMethod " + describe(again.activationMethod);
  }
  return std::nullopt;
}

}  // namespace tessel::fuzz
