#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include "imaging/average_color.h"
#include "imaging/color_category.h"
#include "sim/sim_image.h"
#include "sim/sim_image_context.h"

namespace tessel {
namespace {

host::Ref<host::Image> image(std::size_t width, std::size_t height, std::size_t bytesPerRow, std::size_t bitsPerPixel,
                             std::vector<std::uint8_t> bytes) {
  return host::Ref<host::Image>(sim::imageFromBytes(width, height, bytesPerRow, bitsPerPixel, std::move(bytes)));
}

// Only the image contexts of the substitute host, each kept for inspection.
class ContextHost : public host::Host {
 public:
  host::Ref<host::ImageContext> beginImageContextWithOptions(const host::Size& size, bool opaque,
                                                             double scale) override {
    auto context = std::make_shared<sim::SimImageContext>(size, opaque, scale);
    contexts.push_back(context);
    return host::Ref<host::ImageContext>(context);
  }
  std::vector<std::shared_ptr<sim::SimImageContext>> contexts;
};

host::Color pixelAt(const host::Ref<host::Image>& img, std::size_t x, std::size_t y) {
  return dynamic_cast<const sim::SimImage&>(*img).pixel(x, y);
}

TEST(ImageWithColorAndFrame, FillsTheWholeImageForAFrameAtTheOrigin) {
  ContextHost host;
  auto solid = imageWithColorAndFrame(host, host::Color{0, 1, 0, 1}, {0, 0, 100, 50});
  ASSERT_EQ(solid->width(), 100u);
  ASSERT_EQ(solid->height(), 50u);
  for (std::size_t x : {0u, 50u, 99u})
    for (std::size_t y : {0u, 49u}) EXPECT_EQ(pixelAt(solid, x, y), (host::Color{0, 1, 0, 1}));
  ASSERT_EQ(host.contexts.size(), 1u);
  EXPECT_TRUE(host.contexts[0]->ended());
}

TEST(ImageWithColorAndFrame, AnOriginLeavesTheLeadingColumnsTransparent) {
  ContextHost host;
  auto solid = imageWithColorAndFrame(host, host::Color::whiteColor(), {10, 0, 100, 50});
  ASSERT_EQ(solid->width(), 100u);
  ASSERT_EQ(solid->height(), 50u);
  EXPECT_EQ(pixelAt(solid, 0, 0), host::Color::clearColor());
  EXPECT_EQ(pixelAt(solid, 9, 49), host::Color::clearColor());
  EXPECT_EQ(pixelAt(solid, 10, 0), host::Color::whiteColor());
  EXPECT_EQ(pixelAt(solid, 99, 49), host::Color::whiteColor());
}

TEST(AverageColor, AveragesTheFirstThreeBytesOfEveryPixelAsRedGreenBlue) {
  // Two 32-bit pixels: (255, 0, 0, 255) and (0, 0, 255, 255).
  auto color = averageColor(image(2, 1, 8, 32, {255, 0, 0, 255, 0, 0, 255, 255}));
  EXPECT_NEAR(color.red, 0.5, 1e-7);
  EXPECT_EQ(color.green, 0.0);
  EXPECT_NEAR(color.blue, 0.5, 1e-7);
  EXPECT_EQ(color.alpha, 1.0);
  // The factor is taken in single precision, which 0.5 exactly would miss.
  EXPECT_EQ(color.red, 255.0 * static_cast<double>(1.0f / 510.0f));
  EXPECT_NE(color.red, 0.5);
}

TEST(AverageColor, NeverReadsRowPadding) {
  // One pixel per row, then padding that would skew every channel.
  std::vector<std::uint8_t> bytes = {30, 60, 90, 255, 255, 255, 255, 255,  //
                                     30, 60, 90, 255, 255, 255, 255, 255};
  auto color = averageColor(image(1, 2, 8, 32, bytes));
  EXPECT_NEAR(color.red, 30.0 / 255, 1e-6);
  EXPECT_NEAR(color.green, 60.0 / 255, 1e-6);
  EXPECT_NEAR(color.blue, 90.0 / 255, 1e-6);
}

TEST(AverageColor, StepsByWholeBytesPerPixel) {
  // 24 bits: pixels (10, 20, 30) and (50, 60, 70).
  auto packed = averageColor(image(2, 1, 6, 24, {10, 20, 30, 50, 60, 70}));
  EXPECT_NEAR(packed.red, 30.0 / 255, 1e-6);
  EXPECT_NEAR(packed.green, 40.0 / 255, 1e-6);
  EXPECT_NEAR(packed.blue, 50.0 / 255, 1e-6);

  // 16 bits: each pixel still reads three bytes, the third being the next
  // pixel's first; past the stored bytes nothing is added.
  auto narrow = averageColor(image(2, 1, 4, 16, {10, 20, 30, 40}));
  EXPECT_NEAR(narrow.red, (10.0 + 30) / 510, 1e-6);
  EXPECT_NEAR(narrow.green, (20.0 + 40) / 510, 1e-6);
  EXPECT_NEAR(narrow.blue, (30.0 + 0) / 510, 1e-6);
}

TEST(AverageColor, ZeroSizeGivesNotANumberWithFullAlpha) {
  for (auto empty : {image(0, 4, 16, 32, {1, 2, 3, 4}), image(4, 0, 16, 32, {1, 2, 3, 4})}) {
    auto color = averageColor(empty);
    EXPECT_TRUE(std::isnan(color.red));
    EXPECT_TRUE(std::isnan(color.green));
    EXPECT_TRUE(std::isnan(color.blue));
    EXPECT_EQ(color.alpha, 1.0);
  }
}

TEST(AverageColor, ChannelSumsWrapAt32Bits) {
  // 4200 x 4200 bright pixels, one byte each, overlapping reads: every pixel
  // adds 255 to each sum, 17,640,000 times, more than 2^32 / 255.
  const std::size_t side = 4200;
  auto bright = image(side, side, side, 8, std::vector<std::uint8_t>(side * side + 2, 255));
  auto color = averageColor(bright);
  const double wrapped = static_cast<double>((std::uint64_t{side} * side * 255) % (std::uint64_t{1} << 32));
  const double expected = wrapped / (double(side) * side * 255);
  EXPECT_NEAR(color.red, expected, 1e-6);
  EXPECT_NEAR(color.green, expected, 1e-6);
  EXPECT_LT(color.blue, 0.05);  // far below the 1.0 that a wider sum gives
}

TEST(MergedColor, AUniformOpaqueImageGivesItsColourWhateverItsSize) {
  for (std::size_t side : {1u, 3u, 40u}) {
    ContextHost host;
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < side * side; ++i) bytes.insert(bytes.end(), {200, 100, 40, 255});
    auto color = mergedColor(host, image(side, side, side * 4, 32, bytes));
    EXPECT_FLOAT_EQ(color.red, 200.0f / 255.0f);
    EXPECT_FLOAT_EQ(color.green, 100.0f / 255.0f);
    EXPECT_FLOAT_EQ(color.blue, 40.0f / 255.0f);
    EXPECT_EQ(color.alpha, 1.0);
    ASSERT_EQ(host.contexts.size(), 1u);
    EXPECT_EQ(host.contexts[0]->pixelWidth(), 1u);
    EXPECT_TRUE(host.contexts[0]->ended());
  }
}

TEST(MergedColor, TheImagesOwnAlphaNeverReachesTheResult) {
  ContextHost host;
  auto color = mergedColor(host, image(1, 1, 4, 32, {200, 100, 40, 64}));
  EXPECT_EQ(color.alpha, 1.0);
}

}  // namespace
}  // namespace tessel
