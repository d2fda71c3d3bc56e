#pragma once

#include <memory>
#include <string>

#include "sim/sim_image.h"

namespace tessel::sim {

// A PNG file as it is stored: 8-bit RGBA, or RGB when the file has no alpha;
// grey and palette images expanded to RGB(A), 16-bit channels reduced to 8,
// nothing premultiplied. On failure `image` is empty and `error` says why.
struct PngLoad {
  std::shared_ptr<SimImage> image;
  std::string error;
};

PngLoad loadPng(const std::string& path);

}  // namespace tessel::sim
