#include "controller/host_lookup.h"
#include "controller/module.h"
#include "controller/shielded.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel {

// The dimming blur goes behind the arrow; in light mode the whitening layer
// goes behind everything in the key window. Both start invisible.
void TesselGenericNotificationView::revealBackdrop() {
  fullBackBlur()->setAlpha(0);
  view()->superview()->insertSubviewBelowSubview(fullBackBlur(), shared().arrowView.lock());
  if (!shared().darkMode) keyWindow()->insertSubviewAtIndex(whitenUpBackBlurImageView(), 0);
}

void TesselGenericNotificationView::fadeInBackdrop() {
  auto fadeIn = [self = shared_from_this()] {
    self->fullBackBlur()->setAlpha(1.0);
    // In dark mode the whitening layer is in no window.
    self->whitenUpBackBlurImageView()->setAlpha(0.3);
  };
  hostRef().animator()->animateWithDuration(0.5, shieldedBlock(fadeIn));
}

}  // namespace tessel
