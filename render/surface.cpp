#include "render/surface.h"

#include <algorithm>
#include <bit>
#include <cstdint>
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

Picture pictureFromSurface(cairo_surface_t* surface) {
  PixelRect pixels = pixelsOf(surface);
  Picture picture;
  picture.width = pixels.width;
  picture.height = pixels.height;
  // Filled row by row without zeroing first: a 3× screen is 12 MB.
  picture.rgba.reserve(std::size_t(pixels.width) * std::size_t(pixels.height) * 4);
  std::vector<std::uint32_t> row(std::size_t(pixels.width));
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint32_t* in = pixels.pixels + std::size_t(y) * std::size_t(pixels.stride);
    // Screens are opaque almost everywhere: such a row only swaps red and
    // blue; only translucent pixels divide.
    std::uint32_t opaque = 0xFF000000u;
    for (int x = 0; x < pixels.width; ++x) {
      std::uint32_t p = in[x];
      opaque &= p;
      row[std::size_t(x)] = (p & 0xFF00FF00u) | ((p >> 16) & 0xFFu) | ((p & 0xFFu) << 16);
    }
    if (opaque != 0xFF000000u) {
      for (int x = 0; x < pixels.width; ++x) {
        std::uint32_t a = in[x] >> 24;
        if (a == 255) continue;
        auto straight = [a](std::uint32_t c) { return a == 0 ? 0u : std::min(255u, (c * 255 + a / 2) / a); };
        std::uint32_t p = row[std::size_t(x)];
        row[std::size_t(x)] =
            straight(p & 255u) | straight((p >> 8) & 255u) << 8 | straight((p >> 16) & 255u) << 16 | a << 24;
      }
    }
    // Each word holds red, green, blue and alpha from its lowest byte up.
    if constexpr (std::endian::native == std::endian::little) {
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(row.data());
      picture.rgba.insert(picture.rgba.end(), bytes, bytes + std::size_t(pixels.width) * 4);
    } else {
      for (std::uint32_t p : row)
        for (int c = 0; c < 4; ++c) picture.rgba.push_back(std::uint8_t(p >> (8 * c)));
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
