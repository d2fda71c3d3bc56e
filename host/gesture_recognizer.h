#pragma once

#include <cstdint>

#include "host/view.h"

namespace tessel::host {

// A swipe, tap or long-press recognizer; its kind is its class.
class GestureRecognizer : public virtual Object {
 public:
  virtual Ref<View> view() const { return {}; }
  virtual void setDirection(std::uint64_t /*direction*/) {}
  virtual void setNumberOfTapsRequired(std::uint64_t /*taps*/) {}
  virtual void setNumberOfTouchesRequired(std::uint64_t /*touches*/) {}
};

// `UIAlertView`.
class AlertView : public virtual Object {
 public:
  virtual void show() {}
};

}  // namespace tessel::host
