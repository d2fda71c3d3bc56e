#pragma once

#include <chrono>

namespace tessel::cli::serve {

// The simulated phone's time as it follows the wall clock: seconds since the
// start times the speed, where the speed may change along the way without
// the time jumping.
class WorldClock {
 public:
  using Clock = std::chrono::steady_clock;

  explicit WorldClock(Clock::time_point start) : anchorWall_(start) {}

  double at(Clock::time_point now) const {
    return anchorTime_ + std::chrono::duration<double>(now - anchorWall_).count() * speed_;
  }
  void setSpeed(double speed, Clock::time_point now) {
    anchorTime_ = at(now);
    anchorWall_ = now;
    speed_ = speed;
  }
  double speed() const { return speed_; }

 private:
  Clock::time_point anchorWall_;
  double anchorTime_ = 0;
  double speed_ = 1;
};

}  // namespace tessel::cli::serve
