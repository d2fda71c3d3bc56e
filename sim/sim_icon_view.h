#pragma once

#include <memory>

#include "host/icon_view.h"
#include "sim/sim_icon.h"
#include "sim/sim_image_view.h"
#include "sim/sim_view.h"

namespace tessel::sim {

// `SBIconView`: an icon's picture with its name below. Its `layoutSubviews`
// goes through the method table, so the library's replacement runs.
class SimIconView : public SimView, public virtual host::IconView {
 public:
  static constexpr double kWidth = 60;
  static constexpr double kHeight = 74;

  SimIconView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame)
      : SimView(host, std::move(cls), frame) {}
  void awake() override;

  // |host::IconView|
  host::Ref<host::Icon> icon() const override { return host::Ref<host::Icon>(icon_); }
  bool isInDock() const override { return inDock_; }
  host::Ref<host::IconView> initWithDefaultSize() override;
  void _setIconAnimated(const host::Ref<host::Icon>& icon, bool animated) override;
  void setDelegate(const host::Ref<host::Object>& delegate) override { delegate_ = delegate.shared(); }
  void setIconLabelAlpha(double alpha) override { labelAlpha_ = alpha; }

  // |SimObject|
  host::Ref<host::Object> instanceVariable(std::string_view name) const override;

  const std::shared_ptr<SimIcon>& simIcon() const { return icon_; }
  void setIcon(std::shared_ptr<SimIcon> icon);
  void setInDock(bool inDock) { inDock_ = inDock; }
  double labelAlpha() const { return labelAlpha_; }
  const std::shared_ptr<SimImageView>& imageView() const { return imageView_; }

  void layoutSubviewsNow() override;
  // The host's own layout of the icon view: the picture fills its top.
  void layoutPicture();

 private:
  std::shared_ptr<SimIcon> icon_;
  bool inDock_ = false;
  double labelAlpha_ = 1;
  std::weak_ptr<host::Object> delegate_;
  std::shared_ptr<SimImageView> imageView_;
};

}  // namespace tessel::sim
