#pragma once

#include <functional>
#include <utility>

#include "host/shield.h"

namespace tessel::host {

// Work handed to the host to run later (a queued block, an animation block).
// Running it never lets an exception reach the host.
class Block {
 public:
  Block() = default;
  template <class F, class = std::enable_if_t<std::is_invocable_v<F&>>>
  Block(F work) : work_(std::move(work)) {}  // NOLINT(google-explicit-constructor)

  void operator()() const noexcept {
    if (work_) shield(work_);
  }
  explicit operator bool() const { return static_cast<bool>(work_); }

 private:
  std::function<void()> work_;
};

// An animation's completion: told whether the animation ran to its end.
class Completion {
 public:
  Completion() = default;
  template <class F, class = std::enable_if_t<std::is_invocable_v<F&, bool>>>
  Completion(F work) : work_(std::move(work)) {}  // NOLINT(google-explicit-constructor)

  void operator()(bool finished) const noexcept {
    if (work_) shield([&] { work_(finished); });
  }
  explicit operator bool() const { return static_cast<bool>(work_); }

 private:
  std::function<void(bool)> work_;
};

}  // namespace tessel::host
