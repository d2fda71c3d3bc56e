#include <algorithm>
#include <cstdint>
#include <vector>

#include "phone/binding/dispatch.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/block.h"

// libdispatch's main queue, run by the tests instead of a main loop, on a
// clock of its own that moves only as queued blocks come due.
struct dispatch_queue_s {
  char unused;
};

namespace {

struct Queued {
  dispatch_time_t due;
  std::uint64_t order;
  dispatch_block_t block;
};

struct MainQueue {
  dispatch_time_t clock = 0;
  std::uint64_t queued = 0;
  std::vector<Queued> pending;
};

MainQueue& mainQueue() {
  static auto& queue = *new MainQueue();
  return queue;
}

void enqueue(dispatch_time_t due, dispatch_block_t block) {
  auto copied = reinterpret_cast<dispatch_block_t>(_Block_copy(reinterpret_cast<const void*>(block)));
  mainQueue().pending.push_back({due, ++mainQueue().queued, copied});
}

}  // namespace

extern "C" {

dispatch_queue_s _dispatch_main_q{};

void dispatch_async(dispatch_queue_t /*queue*/, dispatch_block_t block) { enqueue(mainQueue().clock, block); }

void dispatch_after(dispatch_time_t when, dispatch_queue_t /*queue*/, dispatch_block_t block) { enqueue(when, block); }

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta) {
  const dispatch_time_t base = when == tessel::phone::kDispatchTimeNow ? mainQueue().clock : when;
  return base + static_cast<dispatch_time_t>(delta);
}

}  // extern "C"

namespace tessel::objc::gnu {

int runMainQueue() {
  int ran = 0;
  auto& pending = mainQueue().pending;
  while (!pending.empty()) {
    auto next = std::min_element(pending.begin(), pending.end(), [](const Queued& a, const Queued& b) {
      return a.due != b.due ? a.due < b.due : a.order < b.order;
    });
    const Queued due = *next;
    pending.erase(next);
    mainQueue().clock = std::max(mainQueue().clock, due.due);
    due.block();
    _Block_release(reinterpret_cast<const void*>(due.block));
    ++ran;
  }
  return ran;
}

long long mainQueueClock() { return static_cast<long long>(mainQueue().clock); }

}  // namespace tessel::objc::gnu
