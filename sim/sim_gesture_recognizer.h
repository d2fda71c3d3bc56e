#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <nlohmann/json.hpp>

#include "host/gesture_recognizer.h"
#include "host/platform_constants.h"
#include "sim/library_objects.h"
#include "sim/sim_object.h"

namespace tessel::sim {

class SimView;

// A swipe, tap or long-press recognizer with the toolkit's defaults: a swipe
// to the right, one tap for a tap, no tap before a long press, one touch.
// Its target is not kept alive.
class SimGestureRecognizer : public SimObject, public virtual host::GestureRecognizer {
 public:
  enum class Kind { swipe, tap, longPress };
  static constexpr std::uint64_t kSwipeRight = host::platform::kSwipeDirectionRight;

  SimGestureRecognizer(SimHost& host, std::shared_ptr<SimClass> cls, Kind kind, TargetAction targetAction);

  // |host::GestureRecognizer|
  host::Ref<host::View> view() const override;
  void setDirection(std::uint64_t direction) override { direction_ = direction; }
  void setNumberOfTapsRequired(std::uint64_t taps) override { taps_ = taps; }
  void setNumberOfTouchesRequired(std::uint64_t touches) override { touches_ = touches; }

  Kind kind() const { return kind_; }
  std::uint64_t direction() const { return direction_; }
  std::uint64_t tapsRequired() const { return taps_; }
  std::uint64_t touchesRequired() const { return touches_; }
  void attachTo(const std::shared_ptr<SimView>& view) { view_ = view; }
  // Sends the action to the target, if the target is still there.
  void sendAction();
  nlohmann::json describe() const;

 private:
  Kind kind_;
  TargetAction targetAction_;
  std::uint64_t direction_ = kSwipeRight;
  std::uint64_t taps_;
  std::uint64_t touches_ = 1;
  std::weak_ptr<SimView> view_;
};

}  // namespace tessel::sim
