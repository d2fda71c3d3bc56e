#include <memory>
#include <string>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// Classes are never freed: the weak reference always reads the class.
class ClassWeakReference final : public host::WeakReference {
 public:
  explicit ClassWeakReference(::Class cls) : class_(cls) {}
  host::Ref<host::Object> load() const override { return referenceToClass(class_); }

 private:
  ::Class class_;
};

::Class classOf(const host::Ref<host::Class>& cls) { return reinterpret_cast<::Class>(objectOf(cls)); }

}  // namespace

const void* PhoneClass::identity() const { return class_; }

std::shared_ptr<const host::WeakReference> PhoneClass::weakReference(
    const std::shared_ptr<const Object>& /*self*/) const {
  return std::make_shared<ClassWeakReference>(class_);
}

host::Ref<host::Class> PhoneClass::objectClass() const {
  return referenceToClass(objc::sendToClass<::Class>(class_, "class"_sel));
}

bool PhoneClass::isKindOfClass(const host::Ref<host::Class>& cls) const {
  return objc::sendToClass<BOOL>(class_, "isKindOfClass:"_sel, classOf(cls));
}

bool PhoneClass::respondsToSelector(std::string_view selector) const {
  return objc::sendToClass<BOOL>(class_, "respondsToSelector:"_sel, sel_registerName(std::string(selector).c_str()));
}

std::string PhoneClass::name() const { return class_getName(class_); }

host::Ref<host::Class> PhoneClass::superclass() const { return referenceToClass(class_getSuperclass(class_)); }

bool PhoneClass::isSubclassOfClass(const host::Ref<host::Class>& cls) const {
  return objc::sendToClass<BOOL>(class_, "isSubclassOfClass:"_sel, classOf(cls));
}

host::Ref<host::Object> PhoneClass::sharedInstance() {
  return referenceTo(objc::sendToClass<id>(class_, "sharedInstance"_sel));
}

host::Ref<host::Object> PhoneClass::sharedInstanceIfExists() {
  return referenceTo(objc::sendToClass<id>(class_, "sharedInstanceIfExists"_sel));
}

host::Ref<host::Object> PhoneClass::homescreenMap() {
  return referenceTo(objc::sendToClass<id>(class_, "homescreenMap"_sel));
}

// An allocated object is the caller's: the reference takes it over.
host::Ref<host::Object> PhoneClass::alloc() {
  return referenceTo(objc::Strong::adopt(objc::sendToClass<id>(class_, "alloc"_sel)));
}

}  // namespace tessel::phone
