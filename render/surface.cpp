#include "render/surface.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

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

// A vector of pixels at a time: the conversion of an opaque screen is a
// shuffle of bytes, and doing it lane by lane is what kept it from being
// cheap.
struct Vectors16 {
  using Pixels = std::uint32_t __attribute__((vector_size(16)));
};
struct Vectors32 {
  using Pixels = std::uint32_t __attribute__((vector_size(32)));
};

// A pixel's word, read and written through memcpy: the picture's bytes are
// bytes, whatever cairo drew into them.
inline std::uint32_t wordAt(const std::uint8_t* row, int x) {
  std::uint32_t word;
  std::memcpy(&word, row + std::size_t(x) * 4, sizeof word);
  return word;
}
inline void setWordAt(std::uint8_t* row, int x, std::uint32_t word) {
  std::memcpy(row + std::size_t(x) * 4, &word, sizeof word);
}

// Turns a row of ARGB words, in place, into words holding red, green, blue
// and alpha from their lowest byte up, and says whether every pixel was
// opaque.
template <class Vectors>
__attribute__((always_inline)) inline bool swapRedAndBlue(std::uint8_t* row, int width) {
  using Pixels = typename Vectors::Pixels;
  constexpr int kPixels = int(sizeof(Pixels) / 4);
  Pixels opaque = Pixels{} | 0xFF000000u;
  int x = 0;
  for (; x + kPixels <= width; x += kPixels) {
    Pixels p;
    std::memcpy(&p, row + std::size_t(x) * 4, sizeof p);
    opaque &= p;
    Pixels q = (p & 0xFF00FF00u) | ((p >> 16) & 0xFFu) | ((p & 0xFFu) << 16);
    std::memcpy(row + std::size_t(x) * 4, &q, sizeof q);
  }
  std::uint32_t lanes[kPixels];
  std::memcpy(lanes, &opaque, sizeof lanes);
  std::uint32_t all = 0xFF000000u;
  for (std::uint32_t lane : lanes) all &= lane;
  for (; x < width; ++x) {
    std::uint32_t p = wordAt(row, x);
    all &= p;
    setWordAt(row, x, (p & 0xFF00FF00u) | ((p >> 16) & 0xFFu) | ((p & 0xFFu) << 16));
  }
  return all == 0xFF000000u;
}

#if defined(__x86_64__)
// Where the processor has them, 32-byte vectors halve the work; the
// program is built for every x86-64, so it asks at run time.
__attribute__((target("avx2"))) bool swapRedAndBlueWide(std::uint8_t* row, int width) {
  return swapRedAndBlue<Vectors32>(row, width);
}

bool swapRedAndBlueInRow(std::uint8_t* row, int width) {
  static const bool wide = __builtin_cpu_supports("avx2");
  return wide ? swapRedAndBlueWide(row, width) : swapRedAndBlue<Vectors16>(row, width);
}
#else
bool swapRedAndBlueInRow(std::uint8_t* row, int width) { return swapRedAndBlue<Vectors16>(row, width); }
#endif

// One channel premultiplied by `alpha`, undone.
std::uint32_t straight(std::uint32_t channel, std::uint32_t alpha) {
  return alpha == 0 ? 0u : std::min(255u, (channel * 255 + alpha / 2) / alpha);
}

// Undoes premultiplication for the translucent pixels of a swapped row.
void straighten(std::uint8_t* row, int width) {
  for (int x = 0; x < width; ++x) {
    const std::uint32_t p = wordAt(row, x);
    const std::uint32_t a = p >> 24;
    if (a == 255) continue;
    setWordAt(
        row, x,
        straight(p & 255u, a) | straight((p >> 8) & 255u, a) << 8 | straight((p >> 16) & 255u, a) << 16 | a << 24);
  }
}

}  // namespace

Surface surfaceOverPicture(Picture& picture) {
  const int stride = picture.width * 4;
  if (picture.width <= 0 || picture.height <= 0 ||
      cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, picture.width) != stride)
    return nullptr;
  picture.rgba.resize(std::size_t(stride) * std::size_t(picture.height));
  Surface surface(cairo_image_surface_create_for_data(picture.rgba.data(), CAIRO_FORMAT_ARGB32, picture.width,
                                                      picture.height, stride));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  return surface;
}

void straightenInPlace(Picture& picture) {
  const std::size_t rowBytes = std::size_t(picture.width) * 4;
  for (std::size_t y = 0; y < std::size_t(picture.height); ++y) {
    std::uint8_t* row = picture.rgba.data() + y * rowBytes;
    // Screens are opaque almost everywhere: such a row only swaps red and
    // blue; only translucent pixels divide.
    if constexpr (std::endian::native == std::endian::little) {
      if (!swapRedAndBlueInRow(row, picture.width)) straighten(row, picture.width);
    } else {
      for (int x = 0; x < picture.width; ++x) {
        const std::uint32_t p = wordAt(row, x);
        const std::uint32_t a = p >> 24;
        std::uint8_t* bytes = row + std::size_t(x) * 4;
        bytes[0] = std::uint8_t(straight((p >> 16) & 255u, a));
        bytes[1] = std::uint8_t(straight((p >> 8) & 255u, a));
        bytes[2] = std::uint8_t(straight(p & 255u, a));
        bytes[3] = std::uint8_t(a);
      }
    }
  }
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
