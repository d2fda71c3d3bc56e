#include "controller/tessel_notification_controller.h"

namespace tessel {
namespace {

namespace platform = host::platform;

void alertInvalidActivationMethod(host::Host& host) {
  host.makeAlertView("Tessel", "Something has gone wrong! Please adjust your Activation method in Tessel Settings.",
                     "Dismiss")
      ->show();
}

}  // namespace

void TesselNotificationController::registerLongHoldNotificationWithBundleIdentifier(
    const host::String& bundleIdentifier) {
  auto iconView = context_.iconViewForBundleIdentifier(bundleIdentifier);
  auto& host = context_.host;
  auto self = object();
  auto swipe = host.makeSwipeGestureRecognizer(self, host::action::handleIconHeldFromSender);
  auto tap = host.makeTapGestureRecognizer(self, host::action::handleIconHeldFromSender);
  auto longPress = host.makeLongPressGestureRecognizer(self, host::action::handleIconHeldFromSender);

  // Compared unsigned, so that negative methods are invalid too.
  switch (static_cast<std::uintptr_t>(state_.activationMethod)) {
    case 0:
      swipe->setDirection(platform::kSwipeDirectionUp);
      iconView->addGestureRecognizer(swipe);
      break;
    case 1:
      swipe->setDirection(platform::kSwipeDirectionDown);
      iconView->addGestureRecognizer(swipe);
      break;
    case 2:
      tap->setNumberOfTapsRequired(2);
      iconView->addGestureRecognizer(tap);
      break;
    case 3:
      tap->setNumberOfTapsRequired(3);
      iconView->addGestureRecognizer(tap);
      break;
    case 4:
      longPress->setNumberOfTouchesRequired(1);
      longPress->setNumberOfTapsRequired(1);
      iconView->addGestureRecognizer(longPress);
      break;
    default:
      alertInvalidActivationMethod(host);
      break;
  }
}

void TesselNotificationController::handleIconHeldFromSender(const host::Ref<host::GestureRecognizer>& sender) {
  if (context_.iconController()->isEditing()) return;
  isLightMode_ = !state_.darkMode;
  auto heldView = host::cast<host::IconView>(sender->view());
  showTesselForBundleIdentifier(heldView->icon()->application()->bundleIdentifier());
}

}  // namespace tessel
