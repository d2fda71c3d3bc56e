#include "sim/sim_main_queue.h"

#include <algorithm>

#include "sim/recorder.h"

namespace tessel::sim {

void SimMainQueue::async(host::Block block) {
  recorder_.dispatch("async", clock_.now);
  schedule(clock_.now, std::move(block));
}

void SimMainQueue::after(std::int64_t nanoseconds, host::Block block) {
  double due = clock_.now + static_cast<double>(std::max<std::int64_t>(nanoseconds, 0)) * 1e-9;
  recorder_.dispatch("after", due);
  schedule(due, std::move(block));
}

void SimMainQueue::schedule(double time, std::function<void()> block) {
  if (!block) return;
  blocks_.emplace(std::make_pair(std::max(time, clock_.now), submitted_++), std::move(block));
}

std::function<void()> SimMainQueue::takeDue(double t) {
  if (blocks_.empty() || blocks_.begin()->first.first > t) return {};
  auto node = blocks_.extract(blocks_.begin());
  clock_.now = std::max(clock_.now, node.key().first);
  return std::move(node.mapped());
}

}  // namespace tessel::sim
