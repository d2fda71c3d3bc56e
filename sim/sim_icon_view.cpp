#include "sim/sim_icon_view.h"

#include <algorithm>

#include "host/hooked_methods.h"
#include "sim/sim_host.h"

namespace tessel::sim {

void SimIconView::awake() {
  imageView_ = simHost().create<SimImageView>("UIImageView", host::Ref<host::Image>());
  addChild(imageView_);
  layoutPicture();
}

host::Ref<host::IconView> SimIconView::initWithDefaultSize() {
  setFrame({0, 0, kWidth, kHeight});
  return host::Ref<host::IconView>(self<SimIconView>());
}

void SimIconView::_setIconAnimated(const host::Ref<host::Icon>& icon, bool) {
  setIcon(std::dynamic_pointer_cast<SimIcon>(icon.shared()));
}

void SimIconView::setIcon(std::shared_ptr<SimIcon> icon) {
  icon_ = std::move(icon);
  imageView_->setImage(icon_ ? host::Ref<host::Image>(icon_->image()) : host::Ref<host::Image>());
}

host::Ref<host::Object> SimIconView::instanceVariable(std::string_view name) const {
  if (name == "_iconImageView") return host::Ref<host::Object>(imageView_);
  return {};
}

void SimIconView::layoutSubviewsNow() {
  auto layout = simClass()->method(host::hooked::iconViewLayoutSubviews);
  if (layout) layout(host::Ref<host::IconView>(self<SimIconView>()));
}

void SimIconView::layoutPicture() {
  double side = std::min(frame().width, frame().height);
  imageView_->setFrame({(frame().width - side) / 2, 0, side, side});
}

}  // namespace tessel::sim
