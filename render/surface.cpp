#include "render/surface.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tessel::render {

Surface surfaceFromPicture(const Picture& picture) {
  if (picture.width <= 0 || picture.height <= 0 ||
      picture.rgba.size() != std::size_t(picture.width) * std::size_t(picture.height) * 4)
    return nullptr;
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.width, picture.height));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  PixelRect pixels = pixelsOf(surface.get());
  const std::uint8_t* in = picture.rgba.data();
  for (int y = 0; y < pixels.height; ++y) {
    std::uint32_t* row = pixels.pixels + std::size_t(y) * std::size_t(pixels.stride);
    for (int x = 0; x < pixels.width; ++x, in += 4) {
      std::uint32_t a = in[3];
      auto premultiply = [a](std::uint32_t c) { return (c * a + 127) / 255; };
      row[x] = (a << 24) | (premultiply(in[0]) << 16) | (premultiply(in[1]) << 8) | premultiply(in[2]);
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

namespace {

// Four pixels at a time: the conversion of an opaque screen is a shuffle
// of bytes, and doing it lane by lane is what kept it from being cheap.
using Lanes = std::uint32_t __attribute__((vector_size(16)));
constexpr int kLanes = 4;

// Turns a row of ARGB words into words holding red, green, blue and alpha
// from their lowest byte up, stored through memcpy so that `out` may be
// any bytes, and says whether every pixel was opaque.
bool swapRedAndBlue(const std::uint32_t* in, void* out, int width) {
  auto* bytes = static_cast<std::uint8_t*>(out);
  Lanes opaque = {0xFF000000u, 0xFF000000u, 0xFF000000u, 0xFF000000u};
  int x = 0;
  for (; x + kLanes <= width; x += kLanes) {
    Lanes p;
    std::memcpy(&p, in + x, sizeof p);
    opaque &= p;
    Lanes q = (p & 0xFF00FF00u) | ((p >> 16) & 0xFFu) | ((p & 0xFFu) << 16);
    std::memcpy(bytes + std::size_t(x) * 4, &q, sizeof q);
  }
  std::uint32_t all = opaque[0] & opaque[1] & opaque[2] & opaque[3];
  for (; x < width; ++x) {
    std::uint32_t p = in[x];
    all &= p;
    std::uint32_t q = (p & 0xFF00FF00u) | ((p >> 16) & 0xFFu) | ((p & 0xFFu) << 16);
    std::memcpy(bytes + std::size_t(x) * 4, &q, sizeof q);
  }
  return all == 0xFF000000u;
}

// Undoes premultiplication for the translucent pixels of a converted row.
void straighten(const std::uint32_t* in, void* out, int width) {
  auto* bytes = static_cast<std::uint8_t*>(out);
  for (int x = 0; x < width; ++x) {
    std::uint32_t a = in[x] >> 24;
    if (a == 255) continue;
    auto straight = [a](std::uint32_t c) { return a == 0 ? 0u : std::min(255u, (c * 255 + a / 2) / a); };
    std::uint32_t p;
    std::memcpy(&p, bytes + std::size_t(x) * 4, sizeof p);
    p = straight(p & 255u) | straight((p >> 8) & 255u) << 8 | straight((p >> 16) & 255u) << 16 | a << 24;
    std::memcpy(bytes + std::size_t(x) * 4, &p, sizeof p);
  }
}

}  // namespace

Picture pictureFromSurface(cairo_surface_t* surface) {
  PixelRect pixels = pixelsOf(surface);
  Picture picture;
  picture.width = pixels.width;
  picture.height = pixels.height;
  // Sized at once, unset, and written in place.
  picture.rgba.resize(std::size_t(pixels.width) * std::size_t(pixels.height) * 4);
  std::vector<std::uint32_t> row;
  std::uint8_t* out = picture.rgba.data();
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint32_t* in = pixels.pixels + std::size_t(y) * std::size_t(pixels.stride);
    // Screens are opaque almost everywhere: such a row only swaps red and
    // blue; only translucent pixels divide.
    if constexpr (std::endian::native == std::endian::little) {
      if (!swapRedAndBlue(in, out, pixels.width)) straighten(in, out, pixels.width);
      out += std::size_t(pixels.width) * 4;
    } else {
      row.resize(std::size_t(pixels.width));
      if (!swapRedAndBlue(in, row.data(), pixels.width)) straighten(in, row.data(), pixels.width);
      for (std::uint32_t p : row)
        for (int c = 0; c < 4; ++c) *out++ = std::uint8_t(p >> (8 * c));
    }
  }
  return picture;
}

PixelRect pixelsOf(cairo_surface_t* surface) {
  cairo_surface_flush(surface);
  PixelRect pixels;
  pixels.pixels = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface));
  pixels.width = cairo_image_surface_get_width(surface);
  pixels.height = cairo_image_surface_get_height(surface);
  pixels.stride = cairo_image_surface_get_stride(surface) / 4;
  return pixels;
}

}  // namespace tessel::render
