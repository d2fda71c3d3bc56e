#include "cli/serve/change_watch.h"

#include "sim/sim_animator.h"
#include "sim/sim_host.h"
#include "sim/world.h"

namespace tessel::cli::serve {

bool ChangeWatch::changedSinceLastDrawn(const sim::World& world) const {
  if (!drawnOnce_ || world.trace().size() != traceLength_) return true;
  const auto& records = world.host().simAnimator().records();
  while (firstUnfinished_ < records.size() && records[firstUnfinished_]->end() < drawnAt_) ++firstUnfinished_;
  double now = world.time();
  for (std::size_t i = firstUnfinished_; i < records.size(); ++i) {
    const auto& record = *records[i];
    if (record.start <= now && record.end() >= drawnAt_) return true;
  }
  return false;
}

void ChangeWatch::drawn(const sim::World& world) {
  drawnOnce_ = true;
  drawnAt_ = world.time();
  traceLength_ = world.trace().size();
}

}  // namespace tessel::cli::serve
