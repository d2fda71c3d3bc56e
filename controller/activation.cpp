#include "controller/host_lookup.h"
#include "controller/tessel_notification_controller.h"

namespace tessel {
namespace {

constexpr std::string_view kHeldAction = "handleIconHeldFromSender:";
constexpr std::uint64_t kSwipeUp = 4;
constexpr std::uint64_t kSwipeDown = 8;

void alertInvalidActivationMethod() {
  hostRef()
      .makeAlertView("Tessel", "Something has gone wrong! Please adjust your Activation method in Tessel Settings.",
                     "Dismiss")
      ->show();
}

}  // namespace

void TesselNotificationController::registerLongHoldNotificationWithBundleIdentifier(
    const host::String& bundleIdentifier) {
  auto iconView = iconViewForBundleIdentifier(bundleIdentifier);
  auto& host = hostRef();
  auto swipe = host.makeSwipeGestureRecognizer(weak_from_this(), kHeldAction);
  auto tap = host.makeTapGestureRecognizer(weak_from_this(), kHeldAction);
  auto longPress = host.makeLongPressGestureRecognizer(weak_from_this(), kHeldAction);

  // Compared unsigned, so that negative methods are invalid too.
  switch (static_cast<std::uintptr_t>(shared().activationMethod)) {
    case 0:
      swipe->setDirection(kSwipeUp);
      iconView->addGestureRecognizer(swipe);
      break;
    case 1:
      swipe->setDirection(kSwipeDown);
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
      alertInvalidActivationMethod();
      break;
  }
}

void TesselNotificationController::handleIconHeldFromSender(const host::Ref<host::GestureRecognizer>& sender) {
  if (iconController()->isEditing()) return;
  isLightMode_ = !shared().darkMode;
  auto heldView = host::cast<host::IconView>(sender->view());
  showTesselForBundleIdentifier(heldView->icon()->application()->bundleIdentifier());
}

void TesselNotificationController::dismissTessel() { removeTesselViewsFromView({}); }

}  // namespace tessel
