#pragma once

// The library's own classes as the runtime knows them:
// `TesselNotificationController` (an NSObject) and
// `TesselGenericNotificationView` (a UIView). Each runtime object owns the
// delegate that stands behind it, and every message it answers is a call
// into the library (callIntoLibrary).

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "host/library_delegates.h"
#include "phone/binding/bridge.h"
#include "phone/binding/loaded_library.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"

namespace tessel::phone {

inline constexpr const char* kControllerClassName = "TesselNotificationController";
inline constexpr const char* kViewClassName = "TesselGenericNotificationView";

// Registers both classes with the runtime. Once per process: a class that
// is already there is left as it is.
void registerLibraryClasses();
// Each class's definition (library_classes_controller.cpp,
// library_classes_view.cpp); nil when its superclass is missing.
Class registerControllerClass();
Class registerViewClass();

// What an object of each class owns.
struct OwnedControllerDelegate {
  std::shared_ptr<host::ControllerDelegate> delegate;
};
struct OwnedViewDelegate {
  std::shared_ptr<host::ViewDelegate> delegate;
};

// The delegate an object owns, held for the length of a call: the call may
// free the object, and the delegate with it.
template <class Owned>
auto delegateOf(id self) -> decltype(Owned::delegate) {
  auto* owned = objc::findOwned<Owned>(self);
  return owned == nullptr ? nullptr : owned->delegate;
}

// A new array retaining `objects`, handed back autoreleased as a getter's
// answer is (library_classes_arrays.cpp).
id autoreleasedArrayOf(const std::vector<id>& objects);

// How a property's value travels between the C++ object and the runtime. A
// getter answers what the C++ object holds without handing over ownership;
// values made for the answer (strings, arrays) are autoreleased.
template <class T>
struct PropertyValue;

template <class T>
struct PropertyValue<host::Ref<T>> {
  using Runtime = id;
  static id toRuntime(const host::Ref<T>& object) { return objectOf(object); }
  static host::Ref<T> fromRuntime(id object) { return referenceTo<T>(object); }
};

template <>
struct PropertyValue<host::String> {
  using Runtime = id;
  static id toRuntime(const host::String& text) { return objc_autorelease(makeString(text).release()); }
  static host::String fromRuntime(id string) { return stringOf(string); }
};

template <>
struct PropertyValue<bool> {
  using Runtime = BOOL;
  static BOOL toRuntime(bool value) { return value; }
  static bool fromRuntime(BOOL value) { return value; }
};

template <>
struct PropertyValue<double> {
  using Runtime = double;
  static double toRuntime(double value) { return value; }
  static double fromRuntime(double value) { return value; }
};

template <class T>
struct PropertyValue<std::vector<host::Ref<T>>> {
  using Runtime = id;
  static id toRuntime(const std::vector<host::Ref<T>>& objects) {
    std::vector<id> elements;
    for (const auto& object : objects) elements.push_back(objectOf(object));
    return autoreleasedArrayOf(elements);
  }
  static std::vector<host::Ref<T>> fromRuntime(id array) { return arrayOf<T>(array); }
};

// Accessors forwarding to a property of the C++ object that `Find` reaches
// from the runtime object (nil, zero or nothing when it reaches none).
template <auto Find, auto Get>
void addGetter(objc::ClassBuilder& builder, SEL getter) {
  using Owner = typename decltype(Find(nullptr))::element_type;
  using Value = std::remove_cvref_t<decltype((std::declval<const Owner&>().*Get)())>;
  using Runtime = typename PropertyValue<Value>::Runtime;
  builder.addMethod(getter, [](id self) -> Runtime {
    return callIntoLibrary([&]() -> Runtime {
      auto owner = Find(self);
      return owner ? PropertyValue<Value>::toRuntime((owner.get()->*Get)()) : Runtime{};
    });
  });
}

template <auto Find, auto Get, auto Set>
void addProperty(objc::ClassBuilder& builder, SEL getter, SEL setter) {
  using Owner = typename decltype(Find(nullptr))::element_type;
  using Value = std::remove_cvref_t<decltype((std::declval<const Owner&>().*Get)())>;
  using Runtime = typename PropertyValue<Value>::Runtime;
  addGetter<Find, Get>(builder, getter);
  builder.addMethod(setter, [](id self, Runtime value) {
    callIntoLibrary([&] {
      if (auto owner = Find(self)) (owner.get()->*Set)(PropertyValue<Value>::fromRuntime(value));
    });
  });
}

}  // namespace tessel::phone
