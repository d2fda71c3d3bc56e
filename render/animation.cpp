#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <future>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "render/atomic_file.h"
#include "render/render.h"
#include "render/webp_still.h"

namespace tessel::render {

namespace {

// One picture of the file, shown from the frame it was added at until the
// next picture that differs from it.
struct Shown {
  int firstFrame = 0;
  std::future<WebpStill> still;
};

// How many frames may be encoding at once; more would only hold pictures
// in memory while they wait for a core.
std::size_t encodersAtOnce() { return std::max(2u, std::thread::hardware_concurrency()); }

}  // namespace

struct Animation::Encoder {
  int width = 0;
  int height = 0;
  double fps = 0;
  int frames = 0;
  std::string problem;
  PixelBytes previous;
  std::vector<Shown> shown;
  std::size_t settled = 0;  // shown[0, settled) are known to be encoded
  // The finished file, once assembled; no frame may follow it.
  std::vector<std::uint8_t> assembled;

  int timestamp(int frame) const { return int(std::lround(frame * 1000.0 / fps)); }

  void encodeInBackground(const PixelBytes& rgba) {
    while (shown.size() - settled >= encodersAtOnce()) shown[settled++].still.wait();
    auto encode = [pixels = rgba, w = width, h = height] { return encodeWebpStill(pixels, w, h); };
    try {
      shown.push_back({frames, std::async(std::launch::async, encode)});
    } catch (const std::system_error&) {
      // No thread to spare: the frame is encoded when the file is written.
      shown.push_back({frames, std::async(std::launch::deferred, encode)});
    }
  }

  bool assemble(std::string& reason) {
    WebPMux* mux = WebPMuxNew();
    if (!mux) {
      reason = "out of memory";
      return false;
    }
    WebPMuxAnimParams params{0xFF000000u, 0};  // black behind, loops forever
    bool ok = WebPMuxSetCanvasSize(mux, width, height) == WEBP_MUX_OK &&
              WebPMuxSetAnimationParams(mux, &params) == WEBP_MUX_OK;
    for (std::size_t i = 0; ok && i < shown.size(); ++i) {
      WebpStill still = shown[i].still.get();
      if (!still.problem.empty()) {
        reason = "frame " + std::to_string(shown[i].firstFrame) + ": " + still.problem;
        ok = false;
        break;
      }
      int until = i + 1 < shown.size() ? shown[i + 1].firstFrame : frames;
      WebPMuxFrameInfo frame{};
      frame.bitstream = {still.bytes.data(), still.bytes.size()};
      frame.duration = timestamp(until) - timestamp(shown[i].firstFrame);
      frame.id = WEBP_CHUNK_ANMF;
      frame.dispose_method = WEBP_MUX_DISPOSE_NONE;
      frame.blend_method = WEBP_MUX_NO_BLEND;
      ok = WebPMuxPushFrame(mux, &frame, 1) == WEBP_MUX_OK;
      if (!ok) reason = "frame " + std::to_string(shown[i].firstFrame) + " cannot be added";
    }
    WebPData data;
    WebPDataInit(&data);
    if (ok && WebPMuxAssemble(mux, &data) != WEBP_MUX_OK) {
      reason = "the frames cannot be put together";
      ok = false;
    }
    if (ok) assembled.assign(data.bytes, data.bytes + data.size);
    WebPDataClear(&data);
    WebPMuxDelete(mux);
    return ok;
  }

  ~Encoder() {
    for (auto& s : shown)
      if (s.still.valid()) s.still.wait();
  }
};

Animation::Animation(int width, int height, double fps) : encoder_(new Encoder) {
  encoder_->width = width;
  encoder_->height = height;
  encoder_->fps = fps > 0 ? fps : 60;
  if (width <= 0 || height <= 0 || width > WEBP_MAX_DIMENSION || height > WEBP_MAX_DIMENSION)
    encoder_->problem = "an animation cannot be " + std::to_string(width) + " × " + std::to_string(height) + " pixels";
}

Animation::~Animation() { delete encoder_; }

void Animation::addFrame(const Picture& picture) {
  Encoder& e = *encoder_;
  if (!e.problem.empty()) return;
  if (!e.assembled.empty()) {
    e.problem = "a frame was added after the animation was written";
    return;
  }
  if (picture.width != e.width || picture.height != e.height ||
      picture.rgba.size() != std::size_t(picture.width) * std::size_t(picture.height) * 4) {
    e.problem = "frame " + std::to_string(e.frames) + " is " + std::to_string(picture.width) + " × " +
                std::to_string(picture.height) + " pixels, not " + std::to_string(e.width) + " × " +
                std::to_string(e.height);
    return;
  }
  // A still stretch of the recording is one picture shown longer.
  if (e.shown.empty() || picture.rgba != e.previous) {
    e.encodeInBackground(picture.rgba);
    e.previous = picture.rgba;
  }
  ++e.frames;
}

int Animation::frames() const { return encoder_->frames; }

bool Animation::write(const std::string& path, std::string& error) {
  Encoder& e = *encoder_;
  if (!e.problem.empty()) {
    error = "cannot write " + path + ": " + e.problem;
    return false;
  }
  if (e.frames == 0) {
    error = "cannot write " + path + ": the animation has no frames";
    return false;
  }
  std::string reason;
  if (e.assembled.empty() && !e.assemble(reason)) {
    e.problem = reason;
    error = "cannot write " + path + ": " + reason;
    return false;
  }
  return writeFileAtomically(
      path,
      [&](std::FILE* file, std::string& why) {
        if (std::fwrite(e.assembled.data(), 1, e.assembled.size(), file) == e.assembled.size()) return true;
        why = "cannot write " + path + ": the disk refused the bytes";
        return false;
      },
      error);
}

}  // namespace tessel::render
