#include "cli/serve/live_world.h"

#include <algorithm>

#include "render/render.h"
#include "sim/world.h"

namespace tessel::cli::serve {

LiveWorld::LiveWorld(const sim::WorldConfig& config, const Options& options, FrameStore& frames)
    : options_(options),
      frames_(frames),
      phone_(std::make_unique<LivePhone>(config)),
      start_(WorldClock::Clock::now()),
      clock_(start_) {
  thread_ = std::thread([this] { loop(); });
}

LiveWorld::~LiveWorld() { stop(); }

void LiveWorld::stop() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  wake_.notify_all();
  if (thread_.joinable()) thread_.join();
  // Work that never ran breaks its promise: whoever waits for it is told.
  std::deque<std::function<void()>> abandoned;
  {
    std::lock_guard lock(mutex_);
    abandoned.swap(tasks_);
  }
}

void LiveWorld::post(std::function<void()> task) {
  {
    std::lock_guard lock(mutex_);
    if (stopping_) throw PhoneStopped();
    tasks_.push_back(std::move(task));
  }
  wake_.notify_all();
}

void LiveWorld::setSpeed(double speed) {
  run([this, speed](LivePhone&) {
    clock_.setSpeed(speed, WorldClock::Clock::now());
    std::lock_guard lock(mutex_);
    speed_ = speed;
  });
}

double LiveWorld::speed() const {
  std::lock_guard lock(mutex_);
  return speed_;
}

double LiveWorld::wallSeconds(WorldClock::Clock::time_point when) const {
  return std::chrono::duration<double>(when - start_).count();
}

void LiveWorld::catchUp(WorldClock::Clock::time_point now) {
  sim::World& world = phone_->world();
  world.advanceTo(std::max(world.time(), clock_.at(now)));
  phone_->pollTouches(wallSeconds(now));
}

void LiveWorld::draw() {
  const sim::World& world = phone_->world();
  if (!changes_.changedSinceLastDrawn(world)) return;
  changes_.drawn(world);
  frames_.publish(render::renderWorld(world, options_.scale), world.time());
}

void LiveWorld::loop() {
  auto nextTick = WorldClock::Clock::now();
  for (;;) {
    std::deque<std::function<void()>> tasks;
    {
      std::unique_lock lock(mutex_);
      wake_.wait_until(lock, nextTick, [&] { return stopping_ || !tasks_.empty(); });
      if (stopping_) return;
      tasks.swap(tasks_);
    }
    auto now = WorldClock::Clock::now();
    catchUp(now);
    for (auto& task : tasks) task();
    if (now >= nextTick) {
      draw();
      nextTick = std::max(nextTick + options_.tick, WorldClock::Clock::now());
    }
  }
}

}  // namespace tessel::cli::serve
