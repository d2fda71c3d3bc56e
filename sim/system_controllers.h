#pragma once

#include "sim/sim_object.h"

namespace tessel::sim {

// `SBLockScreenManager`, `SBAppSwitcherController`: what they do is in their
// method tables (see original_methods.cpp).
class SimSystemController : public SimObject {
 public:
  using SimObject::SimObject;
};

// `SBUIController`: the home button and the device lock. Whether the host
// handles the next press is set by whoever presses it.
class SimUIController : public SimObject {
 public:
  using SimObject::SimObject;

  bool handlesPress() const { return handlesPress_; }
  void setHandlesPress(bool handles) { handlesPress_ = handles; }

 private:
  bool handlesPress_ = true;
};

}  // namespace tessel::sim
