#pragma once

#include "phone/package/owned_plist.h"

namespace tessel::package {

// The Settings app's entry for the extension: a row that opens a pane of
// three groups (on/off, panel colour, activation gesture), each setting
// stored in the extension's settings domain and announced when changed.
// Described entirely as data, so the package carries no settings code.
OwnedPlist makeSettingsPane();

}  // namespace tessel::package
