#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "render/render.h"

namespace tessel::cli::serve {

// One picture of the screen, numbered in the order they were drawn, with
// its encodings made on first demand and kept for every later viewer.
class Frame {
 public:
  Frame(std::uint64_t number, double time, render::Picture picture)
      : number_(number), time_(time), picture_(std::move(picture)) {}

  std::uint64_t number() const { return number_; }
  double time() const { return time_; }
  const render::Picture& picture() const { return picture_; }
  const std::string& png() const;
  const std::string& webp() const;

 private:
  std::uint64_t number_;
  double time_;
  render::Picture picture_;
  mutable std::once_flag pngOnce_;
  mutable std::once_flag webpOnce_;
  mutable std::string png_;
  mutable std::string webp_;
};

// The latest picture of the screen, for any number of viewers: one thread
// publishes, viewers wait for a frame newer than the one they have.
class FrameStore {
 public:
  // Keeps the picture as the next frame, unless it shows exactly what the
  // latest one shows. True when it was kept.
  bool publish(render::Picture picture, double time);
  std::shared_ptr<const Frame> latest() const;
  // The latest frame when it is numbered above `after`, waiting up to
  // `timeout` for one; nothing when none came or the store was closed.
  std::shared_ptr<const Frame> newerThan(std::uint64_t after, std::chrono::milliseconds timeout) const;
  // Wakes every viewer that waits; none waits again.
  void close();

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable published_;
  std::shared_ptr<const Frame> latest_;
  bool closed_ = false;
};

}  // namespace tessel::cli::serve
