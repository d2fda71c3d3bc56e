#include <webp/encode.h>
#include <webp/mux.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "render/atomic_file.h"
#include "render/render.h"

namespace tessel::render {

struct Animation::Encoder {
  WebPAnimEncoder* encoder = nullptr;
  int width = 0;
  int height = 0;
  double fps = 0;
  int frames = 0;
  std::string problem;
  // The finished file, once assembled; no frame may follow it.
  std::vector<std::uint8_t> assembled;

  int timestamp(int frame) const { return int(std::lround(frame * 1000.0 / fps)); }
};

Animation::Animation(int width, int height, double fps) : encoder_(new Encoder) {
  encoder_->width = width;
  encoder_->height = height;
  encoder_->fps = fps > 0 ? fps : 60;
  WebPAnimEncoderOptions options;
  if (!WebPAnimEncoderOptionsInit(&options)) {
    encoder_->problem = "the WebP library does not match the one the program was built with";
    return;
  }
  options.anim_params.loop_count = 0;
  options.anim_params.bgcolor = 0xFF000000u;
  // Lossy frames stacked on partial updates leave block edges in soft
  // gradients; whole frames do not.
  options.kmax = 1;
  encoder_->encoder = WebPAnimEncoderNew(width, height, &options);
  if (!encoder_->encoder)
    encoder_->problem = "an animation cannot be " + std::to_string(width) + " × " + std::to_string(height) + " pixels";
}

Animation::~Animation() {
  if (encoder_->encoder) WebPAnimEncoderDelete(encoder_->encoder);
  delete encoder_;
}

void Animation::addFrame(const Picture& picture) {
  Encoder& e = *encoder_;
  if (!e.encoder || !e.problem.empty()) return;
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
  WebPConfig config;
  WebPPicture frame;
  if (!WebPConfigInit(&config) || !WebPPictureInit(&frame)) {
    e.problem = "the WebP library does not match the one the program was built with";
    return;
  }
  // Screen recordings are mostly flat colour and soft blur: lossy keeps them
  // small, a high quality keeps gradients free of banding, and a low effort
  // keeps long recordings quick.
  config.quality = 90;
  config.method = 2;
  frame.use_argb = 1;
  frame.width = e.width;
  frame.height = e.height;
  bool added = WebPPictureImportRGBA(&frame, picture.rgba.data(), e.width * 4) &&
               WebPAnimEncoderAdd(e.encoder, &frame, e.timestamp(e.frames), &config);
  if (!added) e.problem = std::string("frame ") + std::to_string(e.frames) + ": " + WebPAnimEncoderGetError(e.encoder);
  WebPPictureFree(&frame);
  if (added) ++e.frames;
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
  if (e.assembled.empty()) {
    WebPData data;
    WebPDataInit(&data);
    if (!WebPAnimEncoderAdd(e.encoder, nullptr, e.timestamp(e.frames), nullptr) ||
        !WebPAnimEncoderAssemble(e.encoder, &data)) {
      error = "cannot write " + path + ": " + WebPAnimEncoderGetError(e.encoder);
      WebPDataClear(&data);
      return false;
    }
    e.assembled.assign(data.bytes, data.bytes + data.size);
    WebPDataClear(&data);
  }
  bool written = writeFileAtomically(
      path,
      [&](std::FILE* file, std::string& reason) {
        if (std::fwrite(e.assembled.data(), 1, e.assembled.size(), file) == e.assembled.size()) return true;
        reason = "cannot write " + path + ": the disk refused the bytes";
        return false;
      },
      error);
  return written;
}

}  // namespace tessel::render
