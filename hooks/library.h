#pragma once

#include <memory>

#include "controller/module.h"

namespace tessel {

// Where the settings pane keeps the settings, and what it posts on a change.
inline constexpr const char* kSettingsPath = "/User/Library/Preferences/com.orvalt.tessellite.plist";
inline constexpr const char* kPreferencesChangedNotification = "com.orvalt.tessel/preferencesChanged";
inline constexpr const char* kWebKitBundlePath = "/System/Library/Frameworks/WebKit.framework";

// Loads the library into a host process, as the loader does: the library's
// own classes become known, then the two initialisers run in their order.
// The process keeps the module until it ends.
std::unique_ptr<Module> loadLibrary(host::Host& host);

// The first initialiser: collections, settings, and, when enabled, the
// hooks, the settings subscription and the web-view bundle.
void firstInitialiser();
// The second initialiser: `verticalOffset` and `originToStartFrom`.
void secondInitialiser();
// Reads the settings file into `darkMode`, `activationMethod` and the
// enabled preference.
void readSettings();
// The settings-changed notification's callback.
void settingsChanged();
// Installs the ten replacements, in their order.
void installHooks();

}  // namespace tessel
