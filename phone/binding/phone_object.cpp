#include <memory>
#include <string>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"
#include "phone/objc/weak.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// Reads nothing from the moment the runtime frees the object, however many
// host references to it come and go in between.
class RuntimeWeakReference final : public host::WeakReference {
 public:
  explicit RuntimeWeakReference(id object) : object_(object) {}
  host::Ref<host::Object> load() const override { return referenceTo(object_.lock()); }

 private:
  objc::Weak object_;
};

}  // namespace

const void* PhoneObject::identity() const { return object_.get(); }

std::shared_ptr<const host::WeakReference> PhoneObject::weakReference(
    const std::shared_ptr<const Object>& /*self*/) const {
  return std::make_shared<RuntimeWeakReference>(object_.get());
}

host::Ref<host::Class> PhoneObject::objectClass() const {
  return referenceToClass(objc::send<Class>(object_.get(), "class"_sel));
}

bool PhoneObject::isKindOfClass(const host::Ref<host::Class>& cls) const {
  return objc::send<BOOL>(object_.get(), "isKindOfClass:"_sel, reinterpret_cast<Class>(objectOf(cls)));
}

bool PhoneObject::respondsToSelector(std::string_view selector) const {
  return objc::send<BOOL>(object_.get(), "respondsToSelector:"_sel, sel_registerName(std::string(selector).c_str()));
}

}  // namespace tessel::phone
