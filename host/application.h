#pragma once

#include "host/geometry.h"
#include "host/object.h"
#include "host/string.h"
#include "host/view.h"

namespace tessel::host {

// `UIApplication` `sharedApplication`, as the home-screen process extends it.
class UIApplication : public virtual Object {
 public:
  virtual Ref<View> keyWindow() const { return {}; }
  virtual void launchApplicationWithIdentifierSuspended(const String& /*bundleIdentifier*/, bool /*suspended*/) {}
};

// `UIScreen` `mainScreen`.
class Screen : public virtual Object {
 public:
  virtual Rect bounds() const { return {}; }
};

// `NSBundle`.
class Bundle : public virtual Object {
 public:
  virtual bool load() { return false; }
};

}  // namespace tessel::host
