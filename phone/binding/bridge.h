#pragma once

// Between host references and the runtime's objects. Every host reference
// that the binding hands to the library stands for one runtime object (or
// for nothing); the library never sees a runtime type.

#include "host/object.h"
#include "host/string.h"
#include "phone/objc/runtime.h"
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

// Called by the binding each time a call into the library returns to the
// runtime (a replaced method, a method of the library's classes, a block):
// publishes the shared presentation state under its exported names.
void libraryReturned() noexcept;

}  // namespace tessel::phone
