#include "controller/tessel_notification_controller.h"
#include "controller/view_motion.h"

namespace tessel {
namespace {

constexpr double kKeyboardMoveDuration = 0.5;

// Moves the page's icons, the panel, the arrow and (outside the dock) the
// icon copy by `dy` together.
void moveEverything(SharedState& state, const std::vector<host::Ref<host::IconView>>& iconViews,
                    const host::Ref<host::View>& panel, double dy) {
  for (const auto& view : iconViews) moveViewVertically(view, dy);
  moveViewVertically(panel, dy);
  moveViewVertically(state.arrowView.lock(), dy);
  if (!state.globalViewSender->isInDock()) moveViewVertically(state.iconView.lock(), dy);
}

}  // namespace

void TesselNotificationController::keyboardWillShowOrHide(const host::Ref<host::Notification>& notification) {
  auto panel = genericView_;
  host::Rect keyboard = notification->userInfo()
                            ->objectForKey(host::platform::kKeyboardFrameEndUserInfoKey)
                            ->CGRectValue()
                            .value_or(host::Rect{});
  double overlap = panel->frame().maxY() - keyboard.y;
  auto iconViews = gatherIconViews();
  auto animator = context_.host.animator();
  auto self = shared_from_this();

  if (host::isEqualToString(notification->name(), host::platform::kKeyboardWillShowNotification)) {
    if (overlap > 0) {
      state_.realKeyboardDisplacement = overlap;
      animator->animateWithDuration(kKeyboardMoveDuration, [self, iconViews, panel, overlap] {
        moveEverything(self->state_, iconViews, panel, -overlap);
      });
    }
    return;
  }
  // The amount of the last rise is kept, even across panels.
  if (state_.realKeyboardDisplacement > 0 && overlap < 0) {
    animator->animateWithDuration(kKeyboardMoveDuration, [self, iconViews, panel] {
      moveEverything(self->state_, iconViews, panel, self->state_.realKeyboardDisplacement);
    });
  }
}

}  // namespace tessel
