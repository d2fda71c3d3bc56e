#pragma once

// Between host references and the runtime's objects. Every host reference
// that the binding hands to the library stands for one runtime object (or
// for nothing); the library never sees a runtime type.

#include <cstddef>
#include <utility>
#include <vector>

#include "host/geometry.h"
#include "host/object.h"
#include "host/string.h"
#include "host/table_view.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::phone {

// A host reference to `object`, retaining it while the reference lives; nil
// gives an empty reference. The reference answers every host interface (a
// message can be sent to any object), identity is the object pointer and its
// weak references are the runtime's.
host::Ref<host::Object> referenceTo(id object);
template <class T>
host::Ref<T> referenceTo(id object) {
  return host::cast<T>(referenceTo(object));
}
// The same for an object the caller owns (from alloc/init, new, copy or a
// weak load): the reference takes that ownership over instead of retaining.
host::Ref<host::Object> referenceTo(objc::Strong owned);
template <class T>
host::Ref<T> referenceTo(objc::Strong owned) {
  return host::cast<T>(referenceTo(std::move(owned)));
}
// A host reference to a class object (`objc_getClass`'s answer).
host::Ref<host::Class> referenceToClass(Class cls);

// The runtime object behind a reference, or nil for an empty reference (or
// one that is not the binding's).
id objectOf(const host::Object* object);
template <class T>
id objectOf(const host::Ref<T>& object) {
  return objectOf(static_cast<const host::Object*>(object.get()));
}

// Platform strings: a new `NSString` (owned by the caller; nil for nothing),
// and the text of one (nothing for nil).
objc::Strong makeString(const host::String& text);
host::String stringOf(id string);

// The platform's integers as methods take them: pointer-sized, whatever
// width std::int64_t has on the target.
using NSInteger = long;
using NSUInteger = unsigned long;

// Points, sizes and rectangles as methods take them (CGFloat is double).
inline objc::Point toRuntime(const host::Point& p) { return {p.x, p.y}; }
inline objc::Size toRuntime(const host::Size& s) { return {s.width, s.height}; }
inline objc::Rect toRuntime(const host::Rect& r) { return {{r.x, r.y}, {r.width, r.height}}; }
inline host::Point toHost(const objc::Point& p) { return {p.x, p.y}; }
inline host::Size toHost(const objc::Size& s) { return {s.width, s.height}; }
inline host::Rect toHost(const objc::Rect& r) { return {r.origin.x, r.origin.y, r.size.width, r.size.height}; }

// Index paths: an `NSIndexPath` (held by the caller; nil for none) and the
// indexes of one (none for nil).
objc::Strong makeIndexPath(const host::IndexPath& path);
host::IndexPath indexPathOf(id indexPath);

// The elements of an `NSArray`, each through a host reference (nil: none).
template <class T>
std::vector<host::Ref<T>> arrayOf(id array) {
  using namespace objc::literals;
  const auto count = objc::send<NSUInteger>(array, "count"_sel);
  std::vector<host::Ref<T>> elements;
  elements.reserve(count);
  for (NSUInteger i = 0; i < count; ++i) {
    elements.push_back(referenceTo<T>(objc::send<id>(array, "objectAtIndex:"_sel, i)));
  }
  return elements;
}

// Called by the binding each time a call into the library returns to the
// runtime (a replaced method, a method of the library's classes, a block):
// publishes the shared presentation state under its exported names.
void libraryReturned() noexcept;

}  // namespace tessel::phone
