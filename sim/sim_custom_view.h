#pragma once

#include <memory>

#include "sim/sim_view.h"

namespace tessel::sim {

// A view of one of the library's own classes: the library object behind it
// (kept alive by the view) does its layout and answers its table.
class SimCustomView : public SimView {
 public:
  SimCustomView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame,
                std::shared_ptr<host::ViewDelegate> delegate)
      : SimView(host, std::move(cls), frame), delegate_(std::move(delegate)) {}

  const std::shared_ptr<host::ViewDelegate>& delegate() const { return delegate_; }

  void layoutSubviewsNow() override {
    if (auto delegate = delegate_) delegate->layoutSubviews();
  }

 private:
  std::shared_ptr<host::ViewDelegate> delegate_;
};

}  // namespace tessel::sim
