#include "phone/binding/phone_runtime.h"

#include <cstddef>
#include <string>

#include "phone/binding/bridge.h"

namespace tessel::phone {

host::Ref<host::Class> PhoneRuntime::getClass(std::string_view name) {
  return referenceToClass(objc_getClass(std::string(name).c_str()));
}

// The variable is read in place, as the object's own methods read it; it
// holds an object, which the reference retains.
host::Ref<host::Object> PhoneRuntime::instanceVariable(const host::Ref<host::Object>& object, std::string_view name) {
  id owner = objectOf(object);
  if (owner == nullptr) return {};
  Ivar variable = class_getInstanceVariable(object_getClass(owner), std::string(name).c_str());
  if (variable == nullptr) return {};
  return referenceTo(*reinterpret_cast<id*>(reinterpret_cast<std::byte*>(owner) + ivar_getOffset(variable)));
}

}  // namespace tessel::phone
