// Image contexts: pixels stored blue, green, red, alpha; fills that honour
// their origin; images drawn into a context averaged over the area they
// cover.

#include <gtest/gtest.h>

#include "sim/sim_image.h"
#include "sim/sim_image_context.h"

namespace tessel::sim::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes pixelAt(const Bytes& bytes, std::size_t width, std::size_t x, std::size_t y) {
  auto at = bytes.begin() + static_cast<std::ptrdiff_t>((y * width + x) * 4);
  return {at, at + 4};
}

TEST(ImageContext, AFillIsStoredBlueFirstAndOnlyInsideTheContext) {
  SimImageContext context({4, 2}, /*opaque*/ false, /*scale*/ 1);
  context.setFillColor({1, 0.5, 0, 1});
  context.fillRect({2, 0, 4, 2});
  auto bytes = context.bitmapData();
  ASSERT_EQ(bytes.size(), 4u * 2 * 4);
  EXPECT_EQ(pixelAt(bytes, 4, 1, 1), (Bytes{0, 0, 0, 0})) << "left of the fill stays transparent";
  EXPECT_EQ(pixelAt(bytes, 4, 2, 0), (Bytes{0, 128, 255, 255}));
  EXPECT_EQ(pixelAt(bytes, 4, 3, 1), (Bytes{0, 128, 255, 255}));

  auto image = context.imageFromContext();
  EXPECT_EQ(image->width(), 4u);
  EXPECT_EQ(image->bitsPerPixel(), 32u);
  EXPECT_EQ(image->bytesPerRow(), 16u);
  EXPECT_EQ(image->copyData(), bytes);
}

TEST(ImageContext, ScaleMultipliesPixelsAndATranslucentFillIsPremultiplied) {
  SimImageContext context({2, 1}, false, 3);
  EXPECT_EQ(context.pixelWidth(), 6u);
  EXPECT_EQ(context.pixelHeight(), 3u);
  context.setFillColor({1, 1, 1, 0.5});
  context.fillRect({0, 0, 1, 1});
  auto bytes = context.bitmapData();
  EXPECT_EQ(pixelAt(bytes, 6, 2, 2), (Bytes{128, 128, 128, 128}));
  EXPECT_EQ(pixelAt(bytes, 6, 3, 0), (Bytes{0, 0, 0, 0}));

  auto image = std::dynamic_pointer_cast<SimImage>(context.imageFromContext().shared());
  EXPECT_EQ(image->size(), (host::Size{2, 1}));
  host::Color seen = image->pixel(0, 0);
  EXPECT_NEAR(seen.red, 1, 1e-9);
  EXPECT_NEAR(seen.alpha, 128 / 255.0, 1e-9);
}

TEST(ImageContext, AnImageCopiedIntoOnePixelIsTheAverageOfItsPixels) {
  // 2 x 2, RGBA as a PNG stores it, rows padded to 12 bytes.
  Bytes rgba = {255, 0,   0, 255, 0,   0,   255, 255, 99, 99, 99, 99,  //
                0,   255, 0, 255, 255, 255, 255, 255, 99, 99, 99, 99};
  auto image = imageFromBytes(2, 2, 12, 32, rgba);
  SimImageContext context({1, 1}, false, 1);
  context.setFillColor({0, 0, 0, 1});
  context.fillRect({0, 0, 1, 1});
  context.drawImage(host::Ref<host::Image>(image), {0, 0, 1, 1}, SimImageContext::kBlendModeCopy, 1.0);
  // red (255 + 0 + 0 + 255) / 4, green (0 + 0 + 255 + 255) / 4, blue (0 + 255 + 0 + 255) / 4
  EXPECT_EQ(context.bitmapData(), (Bytes{128, 128, 128, 255}));
}

TEST(ImageContext, DrawingScalesTheImageOverTheRectangle) {
  // One red and one blue column drawn over four pixels: two of each.
  auto image = imageFromBytes(2, 1, 6, 24, {255, 0, 0, 0, 0, 255});
  SimImageContext context({4, 1}, false, 1);
  context.drawImage(host::Ref<host::Image>(image), {0, 0, 4, 1}, 0, 1.0);
  auto bytes = context.bitmapData();
  EXPECT_EQ(pixelAt(bytes, 4, 1, 0), (Bytes{0, 0, 255, 255}));
  EXPECT_EQ(pixelAt(bytes, 4, 2, 0), (Bytes{255, 0, 0, 255}));
}

TEST(Images, AUniformImageReportsItsColour) {
  EXPECT_EQ(solidImage(3, 2, {0, 0, 1, 1})->uniformColor(), (host::Color{0, 0, 1, 1}));
  EXPECT_EQ(imageFromBytes(2, 1, 6, 24, {255, 0, 0, 0, 0, 255})->uniformColor(), std::nullopt);
  EXPECT_EQ(imageFromBytes(0, 0, 0, 32, {})->uniformColor(), std::nullopt);
}

}  // namespace
}  // namespace tessel::sim::testing
