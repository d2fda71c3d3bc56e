#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessel::fuzz {

// The settings as the library takes them from a settings file: the host's
// dictionary of the file, and each setting's reading (nothing when the key
// is absent or its value has no such reading).
struct SettingsReading {
  bool dictionary = false;  // the host made a dictionary of the file
  std::optional<bool> enabled;
  std::optional<bool> darkMode;
  std::optional<std::int32_t> activationMethod;
};

// Puts `bytes` where the settings file lives on a simulated phone and reads
// it through the host, as the library does at start and on every change.
SettingsReading readSettingsFile(std::string_view bytes);

// What a reading breaks of the host's promises, or nothing.
std::optional<std::string> settingsReadingProblem(const SettingsReading& reading);

}  // namespace tessel::fuzz
