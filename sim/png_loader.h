#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "sim/sim_image.h"

namespace tessel::sim {

// The most pixels (width x height) a PNG may have; a larger one is refused
// from its header, before any memory is taken for it.
inline constexpr std::uint64_t kMaxPngPixels = 64'000'000;

// A PNG file as it is stored: 8-bit RGBA, or RGB when the file has no alpha;
// grey and palette images expanded to RGB(A), 16-bit channels reduced to 8,
// nothing premultiplied. On failure `image` is empty and `error` says why.
struct PngLoad {
  std::shared_ptr<SimImage> image;
  std::string error;
  bool tooLarge = false;  // the header claims more than kMaxPngPixels
};

PngLoad loadPng(const std::string& path);

}  // namespace tessel::sim
