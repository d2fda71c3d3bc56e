#pragma once

#include <string>

#include "controller/class_cache.h"
#include "controller/shared_state.h"
#include "host/host.h"

namespace tessel {

// What the library's objects are given instead of reaching for globals: the
// host, the shared presentation state and the classes looked up so far.
class Context {
 public:
  explicit Context(host::Host& host) : host(host), runtime_(host.runtime()), classes_(*runtime_) {}
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  host::Host& host;
  SharedState state;

  host::Runtime& runtime() const { return *runtime_; }
  host::Ref<host::Class> classNamed(const std::string& name) { return classes_.get(name); }

  // `SBIconController` `sharedInstance`.
  host::Ref<host::IconController> iconController() {
    return host::cast<host::IconController>(classNamed("SBIconController")->sharedInstance());
  }
  // `SBIconViewMap` `homescreenMap`.
  host::Ref<host::IconViewMap> homescreenMap() {
    return host::cast<host::IconViewMap>(classNamed("SBIconViewMap")->homescreenMap());
  }
  // The home-screen icon view of an application: its expected icon, mapped.
  host::Ref<host::IconView> iconViewForBundleIdentifier(const host::String& bundleIdentifier) {
    auto icon = iconController()->model()->expectedIconForDisplayIdentifier(bundleIdentifier);
    return homescreenMap()->mappedIconViewForIcon(icon);
  }
  // `UIApplication` `sharedApplication` `keyWindow`.
  host::Ref<host::View> keyWindow() const { return host.sharedApplication()->keyWindow(); }
  // `UIScreen` `mainScreen` `bounds`, read afresh.
  host::Rect screenBounds() const { return host.mainScreen()->bounds(); }

 private:
  host::Ref<host::Runtime> runtime_;
  ClassCache classes_;
};

}  // namespace tessel
