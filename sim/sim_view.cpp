#include "sim/sim_view.h"

#include <algorithm>

#include "sim/layout_pass.h"
#include "sim/sim_animator.h"
#include "sim/sim_gesture_recognizer.h"
#include "sim/sim_host.h"

namespace tessel::sim {

SimView::SimView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame)
    : SimObject(host, std::move(cls)), frame_(frame) {}

SimView::~SimView() {
  for (auto& child : subviews_) child->superview_ = nullptr;
}

void SimView::setFrame(const host::Rect& frame) {
  host::Rect old = frame_;
  simHost().simAnimator().frameChanged(*this, old, frame);
  frame_ = frame;
  if (layer_) layer_->setFrame(frame);
  if (old.size() != frame.size()) {
    simHost().layoutPass().setNeedsLayout(*this);
    didResize();
  }
}

void SimView::setCenter(const host::Point& center) {
  setFrame({center.x - frame_.width * 0.5, center.y - frame_.height * 0.5, frame_.width, frame_.height});
}

void SimView::setAlpha(double alpha) {
  simHost().simAnimator().alphaChanged(*this, alpha_, alpha);
  alpha_ = alpha;
}

host::Ref<host::View> SimView::superview() const {
  return superview_ ? host::Ref<host::View>(superview_->self<SimView>()) : host::Ref<host::View>();
}

std::vector<host::Ref<host::View>> SimView::subviews() const { return {subviews_.begin(), subviews_.end()}; }

void SimView::addSubview(const host::Ref<host::View>& view) {
  if (auto* child = simView(view)) insertChild(child->self<SimView>(), subviews_.size());
}

void SimView::insertSubviewAtIndex(const host::Ref<host::View>& view, std::int64_t index) {
  if (auto* child = simView(view))
    insertChild(child->self<SimView>(), static_cast<std::size_t>(std::max<std::int64_t>(index, 0)));
}

void SimView::insertSubviewBelowSubview(const host::Ref<host::View>& view, const host::Ref<host::View>& sibling) {
  auto* child = simView(view);
  if (!child) return;
  auto keep = child->self<SimView>();
  // Detach first, so that the sibling's index is the one after the move.
  if (child->superview_ == this) child->detachFromSuperview();
  auto found = std::find_if(subviews_.begin(), subviews_.end(),
                            [&](const auto& s) { return static_cast<host::View*>(s.get()) == sibling.get(); });
  // A sibling that is not a direct subview: the view goes on top.
  insertChild(keep, found == subviews_.end() ? subviews_.size() : static_cast<std::size_t>(found - subviews_.begin()));
}

void SimView::insertChild(const std::shared_ptr<SimView>& child, std::size_t index) {
  if (!child || child.get() == this || child->isAncestorOf(this)) return;
  bool wasInWindow = child->isInWindow();
  child->detachFromSuperview();
  index = std::min(index, subviews_.size());
  subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), child);
  child->superview_ = this;
  if (wasInWindow && !child->isInWindow()) child->leftWindow();
  child->didMoveToSuperview();
  simHost().layoutPass().setNeedsLayout(*child);
}

void SimView::removeFromSuperview() {
  if (!superview_) return;
  auto keep = self<SimView>();
  bool wasInWindow = isInWindow();
  detachFromSuperview();
  if (wasInWindow) leftWindow();
}

void SimView::detachFromSuperview() {
  if (!superview_) return;
  auto& siblings = superview_->subviews_;
  siblings.erase(std::remove_if(siblings.begin(), siblings.end(), [&](const auto& s) { return s.get() == this; }),
                 siblings.end());
  superview_ = nullptr;
}

void SimView::leftWindow() {
  simHost().simAnimator().viewLeftWindow(*this);
  for (const auto& child : subviews_) child->leftWindow();
}

bool SimView::isAncestorOf(const SimView* view) const {
  for (const SimView* v = view; v; v = v->superview_) {
    if (v == this) return true;
  }
  return false;
}

bool SimView::isInWindow() const {
  const SimView* root = this;
  while (root->superview_) root = root->superview_;
  return root == simHost().window().get();
}

host::Point SimView::originInRoot() const {
  host::Point origin;
  for (const SimView* v = this; v; v = v->superview_) {
    origin.x += v->frame_.x;
    origin.y += v->frame_.y;
  }
  return origin;
}

host::Rect SimView::convertRectFromView(const host::Rect& rect, const host::Ref<host::View>& view) const {
  // From nothing: the rectangle is in window (screen) coordinates.
  const SimView* from = simView(view);
  host::Point source = from ? from->originInRoot() : host::Point();
  host::Point here = originInRoot();
  return {rect.x + source.x - here.x, rect.y + source.y - here.y, rect.width, rect.height};
}

host::Rect SimView::convertRectToView(const host::Rect& rect, const host::Ref<host::View>& view) const {
  const SimView* to = simView(view);
  host::Point target = to ? to->originInRoot() : host::Point();
  host::Point here = originInRoot();
  return {rect.x + here.x - target.x, rect.y + here.y - target.y, rect.width, rect.height};
}

host::Ref<host::Layer> SimView::layer() const {
  if (!layer_) {
    layer_ = std::make_shared<SimLayer>();
    layer_->setFrame(frame_);
  }
  return host::Ref<host::Layer>(layer_);
}

std::shared_ptr<SimShapeLayer> SimView::maskLayer() const {
  return layer_ ? std::dynamic_pointer_cast<SimShapeLayer>(layer_->mask().shared()) : nullptr;
}

void SimView::addGestureRecognizer(const host::Ref<host::GestureRecognizer>& recognizer) {
  auto simRecognizer = std::dynamic_pointer_cast<SimGestureRecognizer>(recognizer.shared());
  if (!simRecognizer) return;
  // A recognizer belongs to one view at a time.
  if (auto* previous = dynamic_cast<SimView*>(simRecognizer->view().get())) {
    std::erase(previous->recognizers_, simRecognizer);
  }
  recognizers_.push_back(simRecognizer);
  simRecognizer->attachTo(self<SimView>());
}

void SimView::addAnimationRecord(const std::shared_ptr<AnimationRecord>& record) {
  double now = simHost().time();
  std::erase_if(animations_, [&](const auto& weak) {
    auto r = weak.lock();
    return !r || (r->finished.has_value() && r->end() <= now);
  });
  animations_.push_back(record);
}

host::Rect SimView::presentationFrame(double t) const {
  for (auto it = animations_.rbegin(); it != animations_.rend(); ++it) {
    auto record = it->lock();
    if (record && record->property == AnimationRecord::Property::frame && record->runningAt(t)) {
      return record->frameAt(t);
    }
  }
  return frame_;
}

double SimView::presentationAlpha(double t) const {
  for (auto it = animations_.rbegin(); it != animations_.rend(); ++it) {
    auto record = it->lock();
    if (record && record->property == AnimationRecord::Property::alpha && record->runningAt(t)) {
      return record->alphaAt(t);
    }
  }
  return alpha_;
}

std::shared_ptr<SimView> SimView::hitTest(const host::Point& point) {
  if (hidden_ || !userInteractionEnabled_ || alpha_ <= 0.01) return nullptr;
  if (point.x < 0 || point.y < 0 || point.x >= frame_.width || point.y >= frame_.height) return nullptr;
  for (auto it = subviews_.rbegin(); it != subviews_.rend(); ++it) {
    const auto& child = *it;
    if (auto hit = child->hitTest({point.x - child->frame_.x, point.y - child->frame_.y})) return hit;
  }
  return self<SimView>();
}

void SimView::replaceBackgroundView(std::weak_ptr<SimView>& slot, const host::Ref<host::View>& view) {
  if (auto old = slot.lock()) old->removeFromSuperview();
  auto* background = simView(view);
  slot = background ? background->self<SimView>() : nullptr;
  if (!background) return;
  insertChild(background->self<SimView>(), 0);
  background->setFrame(bounds());
}

}  // namespace tessel::sim
