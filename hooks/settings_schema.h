#pragma once

// The settings as the Settings app stores them and the extension reads them:
// where they live, each key with its type and default, and the words the
// settings pane shows. The library's reader and the package's pane generator
// both take them from here, so the two cannot drift apart.

#include <array>
#include <cstdint>
#include <string_view>

namespace tessel::settings {

inline constexpr std::string_view kPath = "/User/Library/Preferences/com.orvalt.tessellite.plist";
// The preferences domain the Settings app writes kPath under.
inline constexpr std::string_view kDomain = "com.orvalt.tessellite";
// Posted by the Settings app after it has written a changed value.
inline constexpr std::string_view kChangedNotification = "com.orvalt.tessel/preferencesChanged";

// The row in the Settings app's list and the title of the pane it opens.
inline constexpr std::string_view kPaneTitle = "Tessel";

struct BooleanSetting {
  std::string_view key;
  bool defaultValue;
  std::string_view label;
  std::string_view footer;
};

struct IntegerSetting {
  std::string_view key;
  std::int32_t defaultValue;
  std::string_view label;
  std::string_view footer;
};

struct ActivationChoice {
  std::int32_t code;
  std::string_view title;       // in the list of choices
  std::string_view shortTitle;  // beside the setting's name
};

inline constexpr BooleanSetting kEnabled{
    "enabled", true, "Enabled",
    "Turns Tessel on or off. The change takes effect the next time the home screen restarts."};

inline constexpr BooleanSetting kDarkMode{
    "darkMode", true, "Dark panel",
    "On: the notifications panel is dark and blurred. Off: it is white. Applies to the next panel that opens."};

inline constexpr IntegerSetting kActivationMethod{
    "activationMethod", 0, "Activation method",
    "The gesture on an app icon that opens the panel of that app's notifications. After a change the earlier "
    "gesture keeps working too, until the home screen restarts."};

inline constexpr std::array<ActivationChoice, 5> kActivationChoices{{
    {0, "Swipe up on the icon", "Swipe up"},
    {1, "Swipe down on the icon", "Swipe down"},
    {2, "Tap the icon twice (double tap)", "Double tap"},
    {3, "Tap the icon three times (triple tap)", "Triple tap"},
    {4, "Tap the icon once, then touch and hold it", "Tap, then hold"},
}};

// The extension alerts on any code outside these, so they must run 0, 1, 2...
consteval bool activationCodesRunFromZero() {
  std::int32_t expected = 0;
  for (const auto& choice : kActivationChoices) {
    if (choice.code != expected++) return false;
  }
  return true;
}
static_assert(activationCodesRunFromZero());
static_assert(kActivationMethod.defaultValue >= 0 &&
              kActivationMethod.defaultValue < static_cast<std::int32_t>(kActivationChoices.size()));

}  // namespace tessel::settings
