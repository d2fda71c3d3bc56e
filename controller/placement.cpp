#include "controller/host_lookup.h"
#include "controller/shielded.h"
#include "controller/tessel_notification_controller.h"
#include "controller/truncation.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel {
namespace {

// Whether `icon` is, as an object, one of the icons of a remembered folder.
bool isInRememberedFolder(const host::Ref<host::Icon>& icon) {
  bool found = false;
  for (const auto& folder : shared().folders) {
    for (const auto& candidate : folder->allIcons()) {
      if (icon && candidate == icon) {
        found = true;
        break;
      }
    }
  }
  return found;
}

}  // namespace

void TesselNotificationController::showTesselForBundleIdentifier(const host::String& bundleIdentifier) {
  auto& state = shared();
  auto sender = iconViewForBundleIdentifier(bundleIdentifier);
  state.globalViewSender = sender;
  iconsToMoveUp_.clear();

  state.iconExistsInFolder = isInRememberedFolder(sender->icon());
  if (state.iconExistsInFolder) {
    state.originToStartFrom = keyWindow()->convertRectFromView(sender->frame(), sender->superview()).y;
  } else if (!sender->isInDock()) {
    state.originToStartFrom = sender->frame().y + 20;
  }

  // Reaches the panel of an earlier opening, if one is still held.
  genericPanel().setVerticalOffset(300);

  if (!sender->isInDock()) {
    state.checkIconOriginY = truncateToInt32(sender->frame().y);
    state.arrowPosition = 0;
  } else {
    double iconTop = sender->superview()->convertRectToView(sender->frame(), keyWindow()).y;
    state.checkIconOriginY = truncateToInt32(iconTop);
    state.arrowPosition = 1;
    state.originToStartFrom = iconTop + screenBounds().height / -3.5 - 20;
  }

  hostRef().mainQueue()->async(shieldedBlock([self = shared_from_this(), bundleIdentifier] {
    self->showGenericNotificationViewForBundleIdentifier(bundleIdentifier);
    self->performOpeningAnimation();
  }));
}

}  // namespace tessel
