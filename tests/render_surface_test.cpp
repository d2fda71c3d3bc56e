#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "render/surface.h"

namespace tessel::render {
namespace {

// What cairo leaves in a picture drawn in place, as premultiplied ARGB
// words, and the RGBA bytes it must become.
struct Case {
  std::uint32_t argb;
  std::uint8_t rgba[4];
};

// Draws `words` into a picture `width` wide through its own surface and
// straightens it.
Picture drawnAndStraightened(const std::vector<std::uint32_t>& words, int width) {
  Picture picture{width, int(words.size()) / width, {}};
  Surface surface = surfaceOverPicture(picture);
  EXPECT_TRUE(surface);
  PixelRect pixels = pixelsOf(surface.get());
  for (std::size_t i = 0; i < words.size(); ++i)
    pixels.pixels[i / std::size_t(width) * std::size_t(pixels.stride) + i % std::size_t(width)] = words[i];
  cairo_surface_mark_dirty(surface.get());
  surface.reset();
  straightenInPlace(picture);
  return picture;
}

void expectBytes(const Picture& picture, const std::vector<Case>& cases) {
  ASSERT_EQ(picture.rgba.size(), cases.size() * 4);
  for (std::size_t i = 0; i < cases.size(); ++i)
    for (int c = 0; c < 4; ++c)
      EXPECT_EQ(int(picture.rgba[i * 4 + std::size_t(c)]), int(cases[i].rgba[c])) << "pixel " << i << " byte " << c;
}

TEST(PictureInPlace, OpaqueRowsOfAnyWidthOnlySwapRedAndBlue) {
  // 13 wide: whole vectors of pixels and a tail, on two rows.
  std::vector<Case> cases;
  for (std::uint32_t i = 0; i < 26; ++i) {
    std::uint8_t r = std::uint8_t(10 * i), g = std::uint8_t(255 - i), b = std::uint8_t(3 * i + 1);
    cases.push_back({0xFF000000u | std::uint32_t(r) << 16 | std::uint32_t(g) << 8 | b, {r, g, b, 255}});
  }
  std::vector<std::uint32_t> words;
  for (const Case& c : cases) words.push_back(c.argb);
  expectBytes(drawnAndStraightened(words, 13), cases);
}

TEST(PictureInPlace, TranslucentPixelsAreDividedByTheirAlphaAndOpaqueNeighboursKept) {
  // One translucent pixel among opaque ones turns its whole row onto the
  // dividing path; the other row stays on the swapping one.
  std::vector<Case> cases = {
      {0x80400020u, {128, 0, 64, 128}},  // half alpha: 64 × 255 / 128 rounds to 128
      {0x00000000u, {0, 0, 0, 0}},       // fully transparent stays zero
      {0xFF102030u, {0x10, 0x20, 0x30, 255}},
      {0x01010101u, {255, 255, 255, 1}},  // the smallest alpha: full brightness
      {0xFFFF0000u, {255, 0, 0, 255}},
      {0xFF00FF00u, {0, 255, 0, 255}},
      {0xFF0000FFu, {0, 0, 255, 255}},
      {0xFFFFFFFFu, {255, 255, 255, 255}},
      {0xFF000000u, {0, 0, 0, 255}},
      {0xFF808080u, {128, 128, 128, 255}},
  };
  std::vector<std::uint32_t> words;
  for (const Case& c : cases) words.push_back(c.argb);
  expectBytes(drawnAndStraightened(words, 5), cases);
}

}  // namespace
}  // namespace tessel::render
