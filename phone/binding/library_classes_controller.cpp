#include <memory>

#include "controller/tessel_notification_controller.h"
#include "phone/binding/library_objects.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using Controller = TesselNotificationController;

std::shared_ptr<Controller> controllerOf(id self) {
  return std::dynamic_pointer_cast<Controller>(delegateOf<OwnedControllerDelegate>(self));
}

// The targets of the recognizers, the dismiss button and the keyboard
// notifications: each delivers its sender to the delegate.
template <void (host::ControllerDelegate::*Deliver)(const host::Ref<host::Object>&) noexcept>
void addAction(objc::ClassBuilder& builder, SEL action) {
  builder.addMethod(action, [](id self, id sender) {
    callIntoLibrary([&] {
      if (auto delegate = delegateOf<OwnedControllerDelegate>(self)) (delegate.get()->*Deliver)(referenceTo(sender));
    });
  });
}

void addActions(objc::ClassBuilder& builder) {
  addAction<&host::ControllerDelegate::handleIconHeldFromSender>(builder, "handleIconHeldFromSender:"_sel);
  addAction<&host::ControllerDelegate::removeTesselViewsFromView>(builder, "removeTesselViewsFromView:"_sel);
  addAction<&host::ControllerDelegate::keyboardWillShowOrHide>(builder, "keyboardWillShowOrHide:"_sel);
  builder.addMethod("dismissTessel"_sel, [](id self) {
    callIntoLibrary([&] {
      if (auto controller = controllerOf(self)) controller->dismissTessel();
    });
  });
  // The loaded library's one controller, made on first use.
  builder.addClassMethod("sharedController"_sel, [](Class) -> id {
    return callIntoLibrary([]() -> id {
      Library* library = loadedLibrary();
      return library == nullptr ? nullptr : objectOf(library->sharedControllerObject());
    });
  });
}

// `bulletins` is assigned: the object names the array without keeping it.
const char kBulletinsKey = 0;

void addProperties(objc::ClassBuilder& builder) {
  builder.addMethod("bulletins"_sel, [](id self) -> id {
    return callIntoLibrary([&] { return objc_getAssociatedObject(self, &kBulletinsKey); });
  });
  builder.addMethod("setBulletins:"_sel, [](id self, id bulletins) {
    callIntoLibrary([&] { objc_setAssociatedObject(self, &kBulletinsKey, bulletins, OBJC_ASSOCIATION_ASSIGN); });
  });
  addProperty<controllerOf, &Controller::heldIconIdentifier, &Controller::setHeldIconIdentifier>(
      builder, "heldIconIdentifier"_sel, "setHeldIconIdentifier:"_sel);
  addProperty<controllerOf, &Controller::iconsToMoveUp, &Controller::setIconsToMoveUp>(builder, "iconsToMoveUp"_sel,
                                                                                       "setIconsToMoveUp:"_sel);
  addProperty<controllerOf, &Controller::dismissButton, &Controller::setDismissButton>(builder, "dismissButton"_sel,
                                                                                       "setDismissButton:"_sel);
  // The controller sets its panel view itself, when it builds the panel.
  addGetter<controllerOf, &Controller::genericView>(builder, "genericView"_sel);
  addProperty<controllerOf, &Controller::specializedView, &Controller::setSpecializedView>(
      builder, "specializedView"_sel, "setSpecializedView:"_sel);
  addProperty<controllerOf, &Controller::specializedFullBackBlur, &Controller::setSpecializedFullBackBlur>(
      builder, "specializedFullBackBlur"_sel, "setSpecializedFullBackBlur:"_sel);
  addProperty<controllerOf, &Controller::isLightMode, &Controller::setIsLightMode>(builder, "isLightMode"_sel,
                                                                                   "setIsLightMode:"_sel);
}

}  // namespace

Class registerControllerClass() {
  Class superclass = objc_getClass("NSObject");
  if (superclass == nullptr) return nullptr;
  objc::ClassBuilder builder(kControllerClassName, superclass);
  addActions(builder);
  addProperties(builder);
  return builder.registerClass();
}

}  // namespace tessel::phone
