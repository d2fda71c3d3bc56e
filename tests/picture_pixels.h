#pragma once

// Reading one pixel of a rendered picture, for the renderer's tests.

#include <cstddef>
#include <cstdint>

#include "render/render.h"

namespace tessel::render {

struct Rgb {
  int r, g, b;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

inline Rgb at(const Picture& picture, int x, int y) {
  const std::uint8_t* p = &picture.rgba[(std::size_t(y) * std::size_t(picture.width) + std::size_t(x)) * 4];
  return {p[0], p[1], p[2]};
}

}  // namespace tessel::render
