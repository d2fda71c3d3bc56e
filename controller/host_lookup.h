#pragma once

#include "controller/module.h"

// Short ways to the host objects that every part of the controller asks for.
namespace tessel {

// `SBIconController` `sharedInstance`.
inline host::Ref<host::IconController> iconController() {
  return host::cast<host::IconController>(classNamed("SBIconController")->sharedInstance());
}

// `SBIconViewMap` `homescreenMap`.
inline host::Ref<host::IconViewMap> homescreenMap() {
  return host::cast<host::IconViewMap>(classNamed("SBIconViewMap")->homescreenMap());
}

// The home-screen icon view of an application: its expected icon, mapped.
inline host::Ref<host::IconView> iconViewForBundleIdentifier(const host::String& bundleIdentifier) {
  auto icon = iconController()->model()->expectedIconForDisplayIdentifier(bundleIdentifier);
  return homescreenMap()->mappedIconViewForIcon(icon);
}

// `UIApplication` `sharedApplication` `keyWindow`.
inline host::Ref<host::View> keyWindow() { return hostRef().sharedApplication()->keyWindow(); }

// `UIScreen` `mainScreen` `bounds`, read afresh.
inline host::Rect screenBounds() { return hostRef().mainScreen()->bounds(); }

}  // namespace tessel
