#include "phone/binding/library_objects.h"

#include <utility>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_host.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

Class runtimeClassOf(const host::Ref<host::Class>& cls) { return reinterpret_cast<Class>(objectOf(cls)); }

// A new object owned by the caller, made as `[[cls alloc] <initialiser>]`.
template <class... Args>
objc::Strong allocInit(Class cls, SEL initialiser, Args... args) {
  return objc::Strong::adopt(objc::send<id>(objc::sendToClass<id>(cls, "alloc"_sel), initialiser, args...));
}

}  // namespace

void registerLibraryClasses() {
  if (objc_getClass(kControllerClassName) == nullptr) registerControllerClass();
  if (objc_getClass(kViewClassName) == nullptr) registerViewClass();
}

// Without its class the object would answer none of the controller's
// messages, and a recognizer or button aimed at it would raise: nothing is
// made instead, and a message to nothing does nothing.
host::Ref<host::Object> PhoneHost::makeController(const host::Ref<host::Class>& cls,
                                                  std::shared_ptr<host::ControllerDelegate> delegate) {
  Class runtimeClass = runtimeClassOf(cls);
  if (runtimeClass == nullptr) return {};
  objc::Strong object = allocInit(runtimeClass, "init"_sel);
  if (!objc::attachOwned<OwnedControllerDelegate>(object.get(), std::move(delegate))) return {};
  return referenceTo(std::move(object));
}

host::Ref<host::View> PhoneHost::makeCustomView(const host::Ref<host::Class>& cls, const host::Rect& frame,
                                                std::shared_ptr<host::ViewDelegate> delegate) {
  Class runtimeClass = runtimeClassOf(cls);
  if (runtimeClass == nullptr) return {};
  objc::Strong view = allocInit(runtimeClass, "initWithFrame:"_sel, toRuntime(frame));
  if (!objc::attachOwned<OwnedViewDelegate>(view.get(), std::move(delegate))) return {};
  return referenceTo<host::View>(std::move(view));
}

}  // namespace tessel::phone
