#include "controller/host_lookup.h"
#include "controller/shielded.h"
#include "controller/tessel_notification_controller.h"
#include "controller/view_motion.h"

namespace tessel {
namespace {

constexpr double kKeyboardMoveDuration = 0.5;

// Moves the page's icons, the panel, the arrow and (outside the dock) the
// icon copy by `dy` together.
void moveEverything(const std::vector<host::Ref<host::IconView>>& iconViews, const host::Ref<host::View>& panel,
                    double dy) {
  auto& state = shared();
  for (const auto& view : iconViews) moveViewVertically(view, dy);
  moveViewVertically(panel, dy);
  moveViewVertically(state.arrowView.lock(), dy);
  if (!state.globalViewSender->isInDock()) moveViewVertically(state.iconView.lock(), dy);
}

}  // namespace

void TesselNotificationController::keyboardWillShowOrHide(const host::Ref<host::Notification>& notification) {
  auto& state = shared();
  auto panel = genericView_;
  host::Rect keyboard =
      notification->userInfo()->objectForKey("UIKeyboardFrameEndUserInfoKey")->CGRectValue().value_or(host::Rect{});
  double overlap = panel->frame().maxY() - keyboard.y;
  auto iconViews = gatherIconViews();
  auto animator = hostRef().animator();

  if (host::isEqualToString(notification->name(), "UIKeyboardWillShowNotification")) {
    if (overlap > 0) {
      state.realKeyboardDisplacement = overlap;
      animator->animateWithDuration(kKeyboardMoveDuration, shieldedBlock([iconViews, panel, overlap] {
                                      moveEverything(iconViews, panel, -overlap);
                                    }));
    }
    return;
  }
  // The amount of the last rise is kept, even across panels.
  if (state.realKeyboardDisplacement > 0 && overlap < 0) {
    animator->animateWithDuration(kKeyboardMoveDuration, shieldedBlock([iconViews, panel] {
                                    moveEverything(iconViews, panel, shared().realKeyboardDisplacement);
                                  }));
  }
}

}  // namespace tessel
