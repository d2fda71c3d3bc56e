#pragma once

#include <cstdint>

#include "host/block.h"
#include "host/object.h"

namespace tessel::host {

// The main dispatch queue; every block runs on a later turn of the main loop.
class MainQueue : public virtual Object {
 public:
  // `dispatch_async`.
  virtual void async(Block /*block*/) {}
  // `dispatch_after` with `dispatch_time(DISPATCH_TIME_NOW, nanoseconds)`.
  virtual void after(std::int64_t /*nanoseconds*/, Block /*block*/) {}
};

// The toolkit's block animations (`UIView` class operations): the values set
// inside `animations` are the new model values, reached over `duration` on
// the default curve; `completion` receives whether the animation finished.
class Animator : public virtual Object {
 public:
  virtual void animateWithDuration(double /*duration*/, Block animations, Completion completion = {}) {
    animations();
    completion(true);
  }
};

}  // namespace tessel::host
