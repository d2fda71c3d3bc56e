#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "host/view.h"
#include "sim/animation_record.h"
#include "sim/sim_layer.h"
#include "sim/sim_object.h"

namespace tessel::sim {

class SimGestureRecognizer;

// `UIView`: a node of the view tree. A view is kept alive by its superview;
// it knows its superview without keeping it.
class SimView : public SimObject, public virtual host::View {
 public:
  SimView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame);
  ~SimView() override;

  // |host::View|
  host::Rect frame() const override { return frame_; }
  void setFrame(const host::Rect& frame) override;
  host::Rect bounds() const override { return {0, 0, frame_.width, frame_.height}; }
  host::Point center() const override { return frame_.center(); }
  void setCenter(const host::Point& center) override;
  double alpha() const override { return alpha_; }
  void setAlpha(double alpha) override;
  std::int64_t tag() const override { return tag_; }
  void setTag(std::int64_t tag) override { tag_ = tag; }
  host::Ref<host::View> superview() const override;
  std::vector<host::Ref<host::View>> subviews() const override;
  void addSubview(const host::Ref<host::View>& view) override;
  void insertSubviewAtIndex(const host::Ref<host::View>& view, std::int64_t index) override;
  void insertSubviewBelowSubview(const host::Ref<host::View>& view, const host::Ref<host::View>& sibling) override;
  void removeFromSuperview() override;
  host::Rect convertRectFromView(const host::Rect& rect, const host::Ref<host::View>& view) const override;
  host::Rect convertRectToView(const host::Rect& rect, const host::Ref<host::View>& view) const override;
  void setBackgroundColor(const host::Color& color) override { backgroundColor_ = color; }
  void setClipsToBounds(bool clips) override { clipsToBounds_ = clips; }
  void setUserInteractionEnabled(bool enabled) override { userInteractionEnabled_ = enabled; }
  bool isOpaque() const override { return opaque_; }
  host::Ref<host::Layer> layer() const override;
  void addGestureRecognizer(const host::Ref<host::GestureRecognizer>& recognizer) override;

  // The tree as the host and the renderer walk it.
  SimView* parent() const { return superview_; }
  const std::vector<std::shared_ptr<SimView>>& children() const { return subviews_; }
  bool isInWindow() const;
  // This view's origin in the coordinates of the root of its tree.
  host::Point originInRoot() const;
  void addChild(const std::shared_ptr<SimView>& child) { insertChild(child, subviews_.size()); }
  void insertChild(const std::shared_ptr<SimView>& child, std::size_t index);

  const std::optional<host::Color>& backgroundColor() const { return backgroundColor_; }
  bool clipsToBounds() const { return clipsToBounds_; }
  bool userInteractionEnabled() const { return userInteractionEnabled_; }
  bool hidden() const { return hidden_; }
  void setHidden(bool hidden) { hidden_ = hidden; }
  // The mask of the backing layer, when one was set.
  std::shared_ptr<SimShapeLayer> maskLayer() const;
  const std::vector<std::shared_ptr<SimGestureRecognizer>>& recognizers() const { return recognizers_; }

  // The values on screen at time t, animations included.
  host::Rect presentationFrame(double t) const;
  double presentationAlpha(double t) const;
  const std::vector<std::weak_ptr<AnimationRecord>>& animationRecords() const { return animations_; }
  void addAnimationRecord(const std::shared_ptr<AnimationRecord>& record);

  // The deepest view under a point given in this view's coordinates that
  // takes touches: visible, interactive, not transparent. Masks are ignored.
  std::shared_ptr<SimView> hitTest(const host::Point& point);

  // What the layout pass runs for this view.
  virtual void layoutSubviewsNow() {}
  bool needsLayout() const { return needsLayout_; }
  void setNeedsLayoutFlag(bool needs) { needsLayout_ = needs; }

 protected:
  // Puts `view` at the back of this view, filling it, in place of the one
  // `slot` named before (a table's or a cell's background view).
  void replaceBackgroundView(std::weak_ptr<SimView>& slot, const host::Ref<host::View>& view);
  void setOpaque(bool opaque) { opaque_ = opaque; }
  // Called after the view got a new superview.
  virtual void didMoveToSuperview() {}
  // Called after the view's size changed.
  virtual void didResize() {}

 private:
  bool isAncestorOf(const SimView* view) const;
  void detachFromSuperview();
  void leftWindow();

  host::Rect frame_;
  double alpha_ = 1;
  std::int64_t tag_ = 0;
  std::optional<host::Color> backgroundColor_;
  bool clipsToBounds_ = false;
  bool userInteractionEnabled_ = true;
  bool hidden_ = false;
  bool opaque_ = true;
  bool needsLayout_ = false;
  SimView* superview_ = nullptr;
  std::vector<std::shared_ptr<SimView>> subviews_;
  mutable std::shared_ptr<SimLayer> layer_;
  std::vector<std::shared_ptr<SimGestureRecognizer>> recognizers_;
  std::vector<std::weak_ptr<AnimationRecord>> animations_;
};

// The host's own view behind a reference, or nothing.
inline SimView* simView(const host::Ref<host::View>& view) { return dynamic_cast<SimView*>(view.get()); }

}  // namespace tessel::sim
