#include "sim/sim_table_view_cell.h"

#include "sim/sim_host.h"

namespace tessel::sim {

SimTableViewCell::SimTableViewCell(SimHost& host, std::shared_ptr<SimClass> cls, std::int64_t style,
                                   host::String reuseIdentifier)
    : SimView(host, std::move(cls), {0, 0, host.screenBounds().width, kDefaultHeight}),
      style_(style),
      reuseIdentifier_(std::move(reuseIdentifier)) {}

void SimTableViewCell::awake() {
  auto& host = simHost();
  contentView_ = host.create<SimView>("UIView", bounds());
  addChild(contentView_);
  textLabel_ = host.create<SimLabel>("UILabel", host::Rect{});
  contentView_->addChild(textLabel_);
  if (style_ != 0) {
    detailTextLabel_ = host.create<SimLabel>("UILabel", host::Rect{});
    detailTextLabel_->setFont(host::Font::systemFontOfSize(12));
    contentView_->addChild(detailTextLabel_);
  }
  layoutSubviewsNow();
}

void SimTableViewCell::setBackgroundView(const host::Ref<host::View>& view) {
  replaceBackgroundView(backgroundView_, view);
}

void SimTableViewCell::layoutSubviewsNow() {
  host::Rect b = bounds();
  constexpr double kInset = 15;
  if (auto background = backgroundView_.lock()) background->setFrame(b);
  contentView_->setFrame(b);
  double width = b.width - 2 * kInset;
  if (style_ == kStyleSubtitle && detailTextLabel_) {
    textLabel_->setFrame({kInset, b.height * 0.1, width, b.height * 0.45});
    detailTextLabel_->setFrame({kInset, b.height * 0.55, width, b.height * 0.35});
  } else {
    textLabel_->setFrame({kInset, 0, width, b.height});
    if (detailTextLabel_) detailTextLabel_->setFrame({b.width * 0.5, 0, b.width * 0.5 - kInset, b.height});
  }
}

}  // namespace tessel::sim
