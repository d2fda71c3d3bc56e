#pragma once

#include <cstddef>

namespace tessel::sim {
class World;
}

namespace tessel::cli::serve {

// Tells whether the screen may look different from when it was last drawn:
// the host did something since (its trace grew) or an animation ran in the
// time between. Cheap enough to ask on every tick; a frame drawn needlessly
// is dropped later as identical.
class ChangeWatch {
 public:
  bool changedSinceLastDrawn(const sim::World& world) const;
  void drawn(const sim::World& world);

 private:
  bool drawnOnce_ = false;
  double drawnAt_ = 0;
  std::size_t traceLength_ = 0;
  // Every animation before this one had ended by the last drawing.
  mutable std::size_t firstUnfinished_ = 0;
};

}  // namespace tessel::cli::serve
