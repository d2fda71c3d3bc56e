#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "host/main_queue.h"
#include "sim/virtual_clock.h"

namespace tessel::sim {

class Recorder;

// The one main queue: blocks, timers and animation completions, run in time
// order and, at equal times, in the order they were submitted.
class SimMainQueue : public host::MainQueue {
 public:
  SimMainQueue(VirtualClock& clock, Recorder& recorder) : clock_(clock), recorder_(recorder) {}

  // |host::MainQueue|
  void async(host::Block block) override;
  void after(std::int64_t nanoseconds, host::Block block) override;

  // The host's own timers (completions, gesture phases): not traced.
  void schedule(double time, std::function<void()> block);
  // The earliest block due at or before `t`, with the clock moved to its
  // time; empty when none is due.
  std::function<void()> takeDue(double t);
  bool empty() const { return blocks_.empty(); }

 private:
  VirtualClock& clock_;
  Recorder& recorder_;
  std::uint64_t submitted_ = 0;
  std::map<std::pair<double, std::uint64_t>, std::function<void()>> blocks_;
};

}  // namespace tessel::sim
