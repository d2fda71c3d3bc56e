#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include "imaging/average_color.h"
#include "imaging/color_category.h"

namespace tessel {
namespace {

// An image whose stored bytes and layout are given outright.
class StoredImage : public host::Image {
 public:
  StoredImage(std::size_t width, std::size_t height, std::size_t bytesPerRow, std::size_t bitsPerPixel,
              std::vector<std::uint8_t> bytes)
      : width_(width), height_(height), bytesPerRow_(bytesPerRow), bitsPerPixel_(bitsPerPixel), bytes_(bytes) {}
  host::Size size() const override { return {double(width_), double(height_)}; }
  std::size_t width() const override { return width_; }
  std::size_t height() const override { return height_; }
  std::size_t bytesPerRow() const override { return bytesPerRow_; }
  std::size_t bitsPerPixel() const override { return bitsPerPixel_; }
  std::vector<std::uint8_t> copyData() const override { return bytes_; }

 private:
  std::size_t width_, height_, bytesPerRow_, bitsPerPixel_;
  std::vector<std::uint8_t> bytes_;
};

host::Ref<host::Image> image(std::size_t width, std::size_t height, std::size_t bytesPerRow, std::size_t bitsPerPixel,
                             std::vector<std::uint8_t> bytes) {
  return host::make<StoredImage>(width, height, bytesPerRow, bitsPerPixel, std::move(bytes));
}

// A bitmap context stored blue, green, red, alpha, as the device's are. Fills
// are clipped to the bitmap; drawing an RGBA image averages it into the
// bitmap's pixels (enough for a uniform image).
class PixelContext : public host::ImageContext {
 public:
  explicit PixelContext(host::Size size) : width_(std::size_t(size.width)), height_(std::size_t(size.height)) {
    pixels_.assign(width_ * height_ * 4, 0);
  }
  void setFillColor(const host::Color& color) override { fill_ = color; }
  void fillRect(const host::Rect& rect) override {
    for (std::size_t y = 0; y < height_; ++y)
      for (std::size_t x = 0; x < width_; ++x)
        if (x >= rect.x && x < rect.x + rect.width && y >= rect.y && y < rect.y + rect.height)
          put(x, y, fill_.red * 255, fill_.green * 255, fill_.blue * 255, fill_.alpha * 255);
  }
  void drawImage(const host::Ref<host::Image>& source, const host::Rect&, int, double) override {
    auto bytes = source->copyData();
    double sums[4] = {};
    std::size_t count = source->width() * source->height();
    for (std::size_t i = 0; i < count; ++i)
      for (int k = 0; k < 4; ++k) sums[k] += bytes[i * 4 + k];
    for (std::size_t y = 0; y < height_; ++y)
      for (std::size_t x = 0; x < width_; ++x)
        put(x, y, sums[0] / count, sums[1] / count, sums[2] / count, sums[3] / count);
  }
  std::vector<std::uint8_t> bitmapData() const override { return pixels_; }
  host::Ref<host::Image> imageFromContext() const override { return image(width_, height_, width_ * 4, 32, pixels_); }
  void end() override { ended = true; }

  bool ended = false;

 private:
  void put(std::size_t x, std::size_t y, double r, double g, double b, double a) {
    std::uint8_t* p = &pixels_[(y * width_ + x) * 4];
    p[0] = std::uint8_t(std::lround(b));
    p[1] = std::uint8_t(std::lround(g));
    p[2] = std::uint8_t(std::lround(r));
    p[3] = std::uint8_t(std::lround(a));
  }
  std::size_t width_, height_;
  host::Color fill_;
  std::vector<std::uint8_t> pixels_;
};

class PixelHost : public host::Host {
 public:
  host::Ref<host::ImageContext> beginImageContextWithOptions(const host::Size& size, bool, double) override {
    auto context = std::make_shared<PixelContext>(size);
    contexts.push_back(context);
    return host::Ref<host::ImageContext>(context);
  }
  std::vector<std::shared_ptr<PixelContext>> contexts;
};

// The four stored bytes of pixel (x, y) of a 32-bit image.
std::vector<std::uint8_t> pixelAt(const host::Ref<host::Image>& img, std::size_t x, std::size_t y) {
  auto bytes = img->copyData();
  auto at = y * img->bytesPerRow() + x * 4;
  return {bytes[at], bytes[at + 1], bytes[at + 2], bytes[at + 3]};
}

TEST(ImageWithColorAndFrame, FillsTheWholeImageForAFrameAtTheOrigin) {
  PixelHost host;
  auto solid = imageWithColorAndFrame(host, host::Color{0, 1, 0, 1}, {0, 0, 100, 50});
  ASSERT_EQ(solid->width(), 100u);
  ASSERT_EQ(solid->height(), 50u);
  for (std::size_t x : {0u, 50u, 99u})
    for (std::size_t y : {0u, 49u}) EXPECT_EQ(pixelAt(solid, x, y), (std::vector<std::uint8_t>{0, 255, 0, 255}));
  ASSERT_EQ(host.contexts.size(), 1u);
  EXPECT_TRUE(host.contexts[0]->ended);
}

TEST(ImageWithColorAndFrame, AnOriginLeavesTheLeadingColumnsTransparent) {
  PixelHost host;
  auto solid = imageWithColorAndFrame(host, host::Color::whiteColor(), {10, 0, 100, 50});
  ASSERT_EQ(solid->width(), 100u);
  ASSERT_EQ(solid->height(), 50u);
  EXPECT_EQ(pixelAt(solid, 0, 0), (std::vector<std::uint8_t>{0, 0, 0, 0}));
  EXPECT_EQ(pixelAt(solid, 9, 49), (std::vector<std::uint8_t>{0, 0, 0, 0}));
  EXPECT_EQ(pixelAt(solid, 10, 0), (std::vector<std::uint8_t>{255, 255, 255, 255}));
  EXPECT_EQ(pixelAt(solid, 99, 49), (std::vector<std::uint8_t>{255, 255, 255, 255}));
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

TEST(MergedColor, AUniformImageGivesItsColourWithFullAlpha) {
  PixelHost host;
  // Stored red, green, blue, alpha; half transparent.
  std::vector<std::uint8_t> bytes;
  for (int i = 0; i < 12; ++i) bytes.insert(bytes.end(), {200, 100, 40, 128});
  auto color = mergedColor(host, image(4, 3, 16, 32, bytes));
  EXPECT_FLOAT_EQ(color.red, 200.0f / 255.0f);
  EXPECT_FLOAT_EQ(color.green, 100.0f / 255.0f);
  EXPECT_FLOAT_EQ(color.blue, 40.0f / 255.0f);
  EXPECT_EQ(color.alpha, 1.0);
  ASSERT_EQ(host.contexts.size(), 1u);
  EXPECT_TRUE(host.contexts[0]->ended);
}

}  // namespace
}  // namespace tessel
