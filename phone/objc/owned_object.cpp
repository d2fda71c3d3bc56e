#include "phone/objc/owned_object.h"

#include <memory>
#include <utility>

#include "phone/objc/class_builder.h"
#include "phone/objc/instance_variable.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::objc::detail {
namespace {

constexpr const char* kBoxClassName = "TesselOwnedObject";
constexpr const char* kOwnedIvarName = "_owned";

const InstanceVariable<OwnedBase*>& ownedVariable() {
  static const InstanceVariable<OwnedBase*> owned(objc_getClass(kBoxClassName), kOwnedIvarName);
  return owned;
}

// The box is a runtime object holding the C++ object; the owner keeps it as
// an associated object, so the runtime releases it when the owner goes.
Class makeBoxClass() {
  if (Class existing = objc_getClass(kBoxClassName)) return existing;
  Class root = objc_getClass("NSObject");
  if (root == nullptr) return nullptr;
  ClassBuilder builder(kBoxClassName, root);
  builder.addInstanceVariable<OwnedBase*>(kOwnedIvarName);
  builder.addMethod(selector<"dealloc">(), [](const Implementation<void()>& inherited, id self) {
    delete std::exchange(ownedVariable().of(self), nullptr);
    inherited(self);
  });
  return builder.registerClass();
}

Class boxClass() {
  static Class cls = nullptr;
  if (cls == nullptr) cls = makeBoxClass();
  return cls;
}

}  // namespace

bool attach(id owner, const void* key, std::unique_ptr<OwnedBase> owned) {
  Class cls = boxClass();
  if (owner == nullptr || cls == nullptr) return false;
  Strong box = Strong::adopt(send<id>(sendToClass<id>(cls, selector<"alloc">()), selector<"init">()));
  if (!box) return false;
  ownedVariable().of(box.get()) = owned.release();
  objc_setAssociatedObject(owner, key, box.get(), OBJC_ASSOCIATION_RETAIN_NONATOMIC);
  return true;
}

OwnedBase* attached(id owner, const void* key) {
  if (owner == nullptr || boxClass() == nullptr) return nullptr;
  id box = objc_getAssociatedObject(owner, key);
  return box == nullptr ? nullptr : ownedVariable().of(box);
}

}  // namespace tessel::objc::detail
