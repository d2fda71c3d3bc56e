#pragma once

#include <memory>

#include "sim/sim_view.h"

namespace tessel::sim {

// A view of one of the library's own classes: the library object behind it
// (kept alive by the view) does its layout.
class SimCustomView : public SimView {
 public:
  SimCustomView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame,
                std::shared_ptr<host::ViewDelegate> delegate)
      : SimView(host, std::move(cls), frame), delegate_(std::move(delegate)) {}

  // |host::View|
  std::shared_ptr<host::ViewDelegate> viewDelegate() const override { return delegate_; }

  void layoutSubviewsNow() override {
    if (auto delegate = delegate_) delegate->layoutSubviews();
  }

 private:
  std::shared_ptr<host::ViewDelegate> delegate_;
};

}  // namespace tessel::sim
