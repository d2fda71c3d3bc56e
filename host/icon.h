#pragma once

#include <vector>

#include "host/object.h"
#include "host/string.h"

namespace tessel::host {

// An installed application (`bundleIdentifier` may be nothing).
class Application : public virtual Object {
 public:
  virtual String bundleIdentifier() const { return {}; }
};

// `SBApplicationController`: the registry of installed applications.
class ApplicationController : public virtual Object {
 public:
  virtual Ref<Application> applicationWithBundleIdentifier(const String& /*bundleIdentifier*/) { return {}; }
  virtual std::vector<Ref<Application>> applicationsWithBundleIdentifier(const String& /*bundleIdentifier*/) {
    return {};
  }
};

// An icon of any kind (application, web clip, newsstand, folder); its kind
// is its class.
class Icon : public virtual Object {
 public:
  virtual Ref<Application> application() const { return {}; }
  // `initWithApplication:` after `alloc` of `SBApplicationIcon`.
  virtual Ref<Icon> initWithApplication(const Ref<Application>& /*application*/) { return {}; }
};

// `objectAtIndex:` that reads past the end as nothing.
template <class T>
Ref<T> objectAtIndex(const std::vector<Ref<T>>& array, std::size_t index) {
  return index < array.size() ? array[index] : Ref<T>();
}

}  // namespace tessel::host
