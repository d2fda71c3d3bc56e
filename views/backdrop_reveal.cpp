#include "views/tessel_generic_notification_view.h"

namespace tessel {

// The dimming blur goes behind the arrow; in light mode the whitening layer
// goes behind everything in the key window. Both start invisible.
void TesselGenericNotificationView::revealBackdrop() {
  fullBackBlur()->setAlpha(0);
  view()->superview()->insertSubviewBelowSubview(fullBackBlur(), context_.state.arrowView.lock());
  if (!context_.state.darkMode) context_.keyWindow()->insertSubviewAtIndex(whitenUpBackBlurImageView(), 0);
}

void TesselGenericNotificationView::fadeInBackdrop() {
  auto fadeIn = [self = shared_from_this()] {
    self->fullBackBlur()->setAlpha(1.0);
    // In dark mode the whitening layer is in no window.
    self->whitenUpBackBlurImageView()->setAlpha(0.3);
  };
  context_.host.animator()->animateWithDuration(0.5, fadeIn);
}

}  // namespace tessel
