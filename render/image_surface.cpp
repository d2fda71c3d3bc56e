#include "render/image_surface.h"

#include <algorithm>
#include <vector>

#include "render/surface.h"
#include "sim/sim_image.h"

namespace tessel::render {
namespace {

Surface convert(const sim::SimImage& image) {
  int width = int(image.width());
  int height = int(image.height());
  if (width <= 0 || height <= 0) return nullptr;
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  PixelRect pixels = pixelsOf(surface.get());
  const std::vector<std::uint8_t>& bytes = image.bytes();
  const std::size_t step = image.bitsPerPixel() / 8;
  const std::size_t rowBytes = image.bytesPerRow();
  for (int y = 0; y < height; ++y) {
    std::uint32_t* out = pixels.pixels + std::size_t(y) * std::size_t(pixels.stride);
    for (int x = 0; x < width; ++x) {
      std::size_t at = std::size_t(y) * rowBytes + std::size_t(x) * step;
      auto byte = [&](std::size_t i) -> std::uint32_t { return i < step && at + i < bytes.size() ? bytes[at + i] : 0; };
      std::uint32_t r, g, b, a;
      switch (image.layout()) {
        case sim::PixelLayout::bgraPremultiplied:
          b = byte(0), g = byte(1), r = byte(2), a = byte(3);
          break;
        case sim::PixelLayout::rgb:
          r = byte(0), g = byte(1), b = byte(2), a = 255;
          break;
        case sim::PixelLayout::rgba:
        default: {
          a = step >= 4 ? byte(3) : 255;
          auto premultiply = [a](std::uint32_t c) { return (c * a + 127) / 255; };
          r = premultiply(byte(0)), g = premultiply(byte(1)), b = premultiply(byte(2));
          break;
        }
      }
      out[x] = (a << 24) | (std::min(r, a) << 16) | (std::min(g, a) << 8) | std::min(b, a);
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

struct Entry {
  std::weak_ptr<host::Image> image;
  const host::Image* address;
  Surface surface;
};

}  // namespace

cairo_surface_t* surfaceForImage(const std::shared_ptr<host::Image>& image) {
  const auto* simImage = dynamic_cast<const sim::SimImage*>(image.get());
  if (!simImage) return nullptr;
  static std::vector<Entry> cache;
  std::erase_if(cache, [](const Entry& e) { return e.image.expired(); });
  for (const Entry& e : cache)
    if (e.address == image.get()) return e.surface.get();
  cache.push_back({image, image.get(), convert(*simImage)});
  return cache.back().surface.get();
}

}  // namespace tessel::render
