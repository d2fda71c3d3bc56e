#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <type_traits>

#include "cli/serve/change_watch.h"
#include "cli/serve/frame_store.h"
#include "cli/serve/live_phone.h"
#include "cli/serve/world_clock.h"

namespace tessel::cli::serve {

// Work handed to a phone that has stopped.
class PhoneStopped : public std::runtime_error {
 public:
  PhoneStopped() : std::runtime_error("the phone has stopped") {}
};

// The served phone on a thread of its own, which alone touches it: on every
// tick its clock catches up with the wall clock (times the speed) and, when
// the screen may have changed, a picture goes to the frame store. Other
// threads hand it work between ticks.
class LiveWorld {
 public:
  struct Options {
    double scale = 1;  // pixels per point of the frames
    std::chrono::microseconds tick{16'667};
  };

  LiveWorld(const sim::WorldConfig& config, const Options& options, FrameStore& frames);
  ~LiveWorld();
  LiveWorld(const LiveWorld&) = delete;
  LiveWorld& operator=(const LiveWorld&) = delete;

  // Runs `work` on the phone's thread with the phone at the current time and
  // hands back what it returns (or throws what it threw). Throws
  // PhoneStopped, or std::future_error, when the phone has stopped.
  template <class F>
  auto run(F work) -> std::invoke_result_t<F, LivePhone&> {
    using Result = std::invoke_result_t<F, LivePhone&>;
    auto task = std::make_shared<std::packaged_task<Result()>>(
        [this, work = std::move(work)]() mutable { return work(*phone_); });
    std::future<Result> result = task->get_future();
    post([task] { (*task)(); });
    return result.get();
  }

  // Seconds of the phone's time per second of wall-clock time.
  void setSpeed(double speed);
  double speed() const;
  // Wall-clock seconds since the phone started, the time of its fingers.
  double wallSeconds(WorldClock::Clock::time_point when) const;
  // Ends the thread; work handed in afterwards fails.
  void stop();

 private:
  void post(std::function<void()> task);
  void loop();
  void catchUp(WorldClock::Clock::time_point now);
  void draw();

  Options options_;
  FrameStore& frames_;
  std::unique_ptr<LivePhone> phone_;
  const WorldClock::Clock::time_point start_;
  WorldClock clock_;  // the phone's thread's, like the phone
  ChangeWatch changes_;

  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()>> tasks_;
  bool stopping_ = false;
  double speed_ = 1;  // what the clock runs at, readable from any thread
  std::thread thread_;
};

}  // namespace tessel::cli::serve
