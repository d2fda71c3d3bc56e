#include "controller/tessel_notification_controller.h"
#include "controller/truncation.h"

namespace tessel {
namespace {

// Whether `icon` is, as an object, one of the icons of a remembered folder.
bool isInRememberedFolder(const SharedState& state, const host::Ref<host::Icon>& icon) {
  bool found = false;
  for (const auto& folder : state.folders) {
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
  auto sender = context_.iconViewForBundleIdentifier(bundleIdentifier);
  state_.globalViewSender = sender;
  iconsToMoveUp_.clear();

  state_.iconExistsInFolder = isInRememberedFolder(state_, sender->icon());
  if (state_.iconExistsInFolder) {
    state_.originToStartFrom = context_.keyWindow()->convertRectFromView(sender->frame(), sender->superview()).y;
  } else if (!sender->isInDock()) {
    state_.originToStartFrom = sender->frame().y + 20;
  }

  // Reaches the panel of an earlier opening, if one is still held.
  genericPanel().setVerticalOffset(300);

  if (!sender->isInDock()) {
    state_.checkIconOriginY = truncateToInt32(sender->frame().y);
    state_.arrowPosition = 0;
  } else {
    double iconTop = sender->superview()->convertRectToView(sender->frame(), context_.keyWindow()).y;
    state_.checkIconOriginY = truncateToInt32(iconTop);
    state_.arrowPosition = 1;
    state_.originToStartFrom = iconTop + context_.screenBounds().height / -3.5 - 20;
  }

  context_.host.mainQueue()->async([self = shared_from_this(), bundleIdentifier] {
    self->showGenericNotificationViewForBundleIdentifier(bundleIdentifier);
    self->performOpeningAnimation();
  });
}

}  // namespace tessel
