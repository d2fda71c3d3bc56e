#pragma once

#include <memory>

#include "views/tessel_generic_notification_view.h"

namespace tessel {

// The panel object behind the controller's `genericView`, as the controller
// talks to it. The panel is the library's own object, not a host object:
// once its view is gone (or before one was made) every message to it does
// nothing and yields nothing, as a message to a missing panel would.
class PanelLink {
 public:
  PanelLink() = default;
  explicit PanelLink(std::weak_ptr<TesselGenericNotificationView> panel) : panel_(std::move(panel)) {}

  void setVerticalOffset(double offset) const {
    if (auto panel = panel_.lock()) panel->setVerticalOffset(offset);
  }
  void updateForFrameChange() const {
    if (auto panel = panel_.lock()) panel->updateForFrameChange();
  }
  host::Ref<host::BackdropSettings> folderBlurBackSettings() const {
    auto panel = panel_.lock();
    return panel ? panel->folderBlurBackSettings() : nullptr;
  }
  host::Ref<host::BackdropView> fullBackBlur() const {
    auto panel = panel_.lock();
    return panel ? panel->fullBackBlur() : nullptr;
  }
  host::Ref<host::View> whitenUpBackBlurImageView() const {
    auto panel = panel_.lock();
    return panel ? panel->whitenUpBackBlurImageView() : nullptr;
  }

 private:
  std::weak_ptr<TesselGenericNotificationView> panel_;
};

}  // namespace tessel
