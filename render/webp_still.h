#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "render/pixel_bytes.h"

namespace tessel::render {

// One frame of a recording as a lossy WebP bitstream, or the reason it
// could not be encoded. Safe to call from several threads at once.
struct WebpStill {
  std::vector<std::uint8_t> bytes;
  std::string problem;
};
WebpStill encodeWebpStill(const PixelBytes& rgba, int width, int height);

}  // namespace tessel::render
