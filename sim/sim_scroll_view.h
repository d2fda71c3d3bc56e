#pragma once

#include "sim/sim_view.h"

namespace tessel::sim {

// `UIScrollView`; the content does not scroll in the simulation.
class SimScrollView : public SimView, public virtual host::ScrollView {
 public:
  using SimView::SimView;

  // |host::ScrollView|
  void setShowsHorizontalScrollIndicator(bool shows) override { showsHorizontal_ = shows; }
  void setShowsVerticalScrollIndicator(bool shows) override { showsVertical_ = shows; }
  void setContentSize(const host::Size& size) override { contentSize_ = size; }
  void setScrollEnabled(bool enabled) override { scrollEnabled_ = enabled; }
  void setBounces(bool bounces) override { bounces_ = bounces; }

  bool scrollEnabled() const { return scrollEnabled_; }
  const host::Size& contentSize() const { return contentSize_; }

 private:
  bool showsHorizontal_ = true;
  bool showsVertical_ = true;
  host::Size contentSize_;
  bool scrollEnabled_ = true;
  bool bounces_ = true;
};

}  // namespace tessel::sim
