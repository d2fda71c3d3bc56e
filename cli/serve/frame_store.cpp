#include "cli/serve/frame_store.h"

#include "cli/serve/image_encoding.h"

namespace tessel::cli::serve {

const std::string& Frame::png() const {
  std::call_once(pngOnce_, [this] { png_ = encodePng(picture_); });
  return png_;
}

const std::string& Frame::webp() const {
  std::call_once(webpOnce_, [this] { webp_ = encodeWebp(picture_); });
  return webp_;
}

bool FrameStore::publish(render::Picture picture, double time) {
  std::shared_ptr<const Frame> previous = latest();
  if (previous && previous->picture().width == picture.width && previous->picture().height == picture.height &&
      previous->picture().rgba == picture.rgba) {
    return false;
  }
  auto frame = std::make_shared<const Frame>(previous ? previous->number() + 1 : 1, time, std::move(picture));
  {
    std::lock_guard lock(mutex_);
    latest_ = std::move(frame);
  }
  published_.notify_all();
  return true;
}

std::shared_ptr<const Frame> FrameStore::latest() const {
  std::lock_guard lock(mutex_);
  return latest_;
}

std::shared_ptr<const Frame> FrameStore::newerThan(std::uint64_t after, std::chrono::milliseconds timeout) const {
  std::unique_lock lock(mutex_);
  bool newer = published_.wait_for(lock, timeout, [&] { return closed_ || (latest_ && latest_->number() > after); });
  if (!newer || closed_) return nullptr;
  return latest_;
}

void FrameStore::close() {
  {
    std::lock_guard lock(mutex_);
    closed_ = true;
  }
  published_.notify_all();
}

}  // namespace tessel::cli::serve
