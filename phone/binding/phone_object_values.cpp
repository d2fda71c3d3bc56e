#include <cstdint>
#include <optional>
#include <string>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// A reading is asked for only of an object that has it: any object may stand
// in a dictionary, and an array sent `boolValue` would raise.
template <typename R>
std::optional<R> readIfAnswered(id object, SEL reading) {
  if (!objc::send<BOOL>(object, "respondsToSelector:"_sel, reading)) return std::nullopt;
  return objc::send<R>(object, reading);
}

SEL selectorOf(const host::ControllerAction& action) { return sel_registerName(std::string(action.selector).c_str()); }

}  // namespace

std::optional<bool> PhoneObject::boolValue() const {
  if (auto value = readIfAnswered<BOOL>(object_.get(), "boolValue"_sel)) return *value != 0;
  return std::nullopt;
}

std::optional<std::int32_t> PhoneObject::intValue() const { return readIfAnswered<int>(object_.get(), "intValue"_sel); }

std::optional<host::Rect> PhoneObject::CGRectValue() const {
  if (auto value = readIfAnswered<objc::Rect>(object_.get(), "CGRectValue"_sel)) return toHost(*value);
  return std::nullopt;
}

host::Ref<host::Value> PhoneObject::objectForKey(std::string_view key) const {
  return referenceTo<host::Value>(
      objc::send<id>(object_.get(), "objectForKey:"_sel, makeString(std::string(key)).get()));
}

host::String PhoneObject::name() const { return stringOf(objc::send<id>(object_.get(), "name"_sel)); }

host::Ref<host::Dictionary> PhoneObject::userInfo() const {
  return referenceTo<host::Dictionary>(objc::send<id>(object_.get(), "userInfo"_sel));
}

// The centre keeps neither the observer nor the object alive, and tells
// observers apart by their runtime object, whichever reference names it.
void PhoneObject::addObserverSelectorNameObject(const host::Ref<host::Object>& observer,
                                                const host::ControllerAction& selector, const host::String& name,
                                                const host::Ref<host::Object>& object) {
  objc::send(object_.get(), "addObserver:selector:name:object:"_sel, objectOf(observer), selectorOf(selector),
             makeString(name).get(), objectOf(object));
}

void PhoneObject::removeObserverNameObject(const host::Ref<host::Object>& observer, const host::String& name,
                                           const host::Ref<host::Object>& object) {
  objc::send(object_.get(), "removeObserver:name:object:"_sel, objectOf(observer), makeString(name).get(),
             objectOf(object));
}

}  // namespace tessel::phone
