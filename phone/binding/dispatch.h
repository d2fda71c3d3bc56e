#pragma once

// The main dispatch queue: libdispatch as far as the binding uses it (in
// libSystem on the phone; on Linux the tests' stand-in queue), and the
// library's host::MainQueue over it.

#include <cstdint>

#include "host/main_queue.h"

extern "C" {
typedef struct dispatch_queue_s* dispatch_queue_t;
typedef std::uint64_t dispatch_time_t;
typedef void (^dispatch_block_t)(void);

// `dispatch_get_main_queue()` is the address of this object.
extern struct dispatch_queue_s _dispatch_main_q;

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta);
}

namespace tessel::phone {

// `DISPATCH_TIME_NOW`.
inline constexpr dispatch_time_t kDispatchTimeNow = 0;

// Queued blocks run on a later turn of the main loop and return to the
// runtime through the library.
host::Ref<host::MainQueue> makeMainQueue();

}  // namespace tessel::phone
