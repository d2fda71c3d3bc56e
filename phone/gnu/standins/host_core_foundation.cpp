#include <string>
#include <vector>

#include "phone/binding/platform_functions.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

// CoreFoundation as far as the binding links against it. Its objects are
// runtime objects, as the phone's bridged ones are.
struct __CFNotificationCenter {
  char unused;
};

namespace {

using namespace tessel::objc::literals;

struct DarwinObserver {
  const void* observer;
  CFNotificationCallback callback;
  std::string name;
  CFIndex suspensionBehavior;
};

std::vector<DarwinObserver>& darwinObservers() {
  static auto& observers = *new std::vector<DarwinObserver>();
  return observers;
}

__CFNotificationCenter darwinCenter{};

std::string textOf(CFStringRef string) {
  const char* text =
      tessel::objc::send<const char*>(reinterpret_cast<id>(const_cast<__CFString*>(string)), "UTF8String"_sel);
  return text == nullptr ? std::string() : text;
}

}  // namespace

extern "C" {

// A release that differs from the library's two: the current one.
double kCFCoreFoundationVersionNumber = 1240.10;

CFIndex CFDataGetLength(CFDataRef data) {
  return tessel::objc::send<CFIndex>(reinterpret_cast<id>(const_cast<__CFData*>(data)), "length"_sel);
}

const std::uint8_t* CFDataGetBytePtr(CFDataRef data) {
  return tessel::objc::send<const std::uint8_t*>(reinterpret_cast<id>(const_cast<__CFData*>(data)), "bytes"_sel);
}

void CFRelease(CFTypeRef object) { objc_release(reinterpret_cast<id>(const_cast<void*>(object))); }

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void) { return &darwinCenter; }

// The centre copies the name.
void CFNotificationCenterAddObserver(CFNotificationCenterRef /*center*/, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* /*object*/,
                                     CFIndex suspensionBehavior) {
  darwinObservers().push_back({observer, callback, textOf(name), suspensionBehavior});
}

}  // extern "C"

namespace tessel::objc::gnu {

void postDarwinNotification(const char* name) {
  id allocated = sendToClass<id>(objc_getClass("NSString"), "alloc"_sel);
  Strong posted = Strong::adopt(send<id>(allocated, "initWithUTF8String:"_sel, name));
  const std::vector<DarwinObserver> observers = darwinObservers();
  for (const DarwinObserver& observer : observers) {
    if (observer.name != name) continue;
    observer.callback(&darwinCenter, const_cast<void*>(observer.observer), reinterpret_cast<CFStringRef>(posted.get()),
                      nullptr, nullptr);
  }
}

long darwinSuspensionBehaviorOf(const char* name) {
  for (const DarwinObserver& observer : darwinObservers()) {
    if (observer.name == name) return observer.suspensionBehavior;
  }
  return -1;
}

}  // namespace tessel::objc::gnu
