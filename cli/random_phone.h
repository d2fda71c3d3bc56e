#pragma once

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "sim/world.h"
#include "sim/world_config.h"

namespace tessel::cli {

// A seeded random phone and a random person using it: screen sizes,
// settings (invalid activation methods included), pages, dock, folders, web
// clips, notifications with ages past and future and texts empty to long,
// and every kind of event at random moments, several at one instant now and
// then. The same seed gives the same phone and the same events.
class RandomPhone {
 public:
  explicit RandomPhone(unsigned seed) : random_(seed) {}

  sim::WorldConfig config();
  // One random event, named to `trace`; true when it closes the panel (a
  // press the host did not handle, or a row or application that is not
  // there, closes nothing).
  bool event(sim::World& world, const std::function<void(const std::string&)>& trace);
  // Until when a press may still lift and act.
  double settledAfter() const { return settledAfter_; }
  // The wait before the next event: now and then none.
  double pause();

 private:
  int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  std::string app();

  std::mt19937 random_;
  std::vector<std::string> apps_;
  double settledAfter_ = 0;
};

}  // namespace tessel::cli
