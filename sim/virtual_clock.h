#pragma once

namespace tessel::sim {

// The simulated phone's time, in seconds since the run began. Only the main
// queue moves it; nothing reads the wall clock.
struct VirtualClock {
  double now = 0;
};

}  // namespace tessel::sim
