#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "render/blur.h"

namespace tessel::render {
namespace {

std::uint32_t argb(std::uint32_t a, std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return (a << 24) | (r << 16) | (g << 8) | b;
}
std::uint32_t channel(std::uint32_t pixel, int shift) { return (pixel >> shift) & 255u; }

struct Image {
  int width;
  int height;
  std::vector<std::uint32_t> pixels;
  Image(int w, int h, std::uint32_t fill = 0) : width(w), height(h), pixels(std::size_t(w) * std::size_t(h), fill) {}
  PixelRect rect() { return {pixels.data(), width, height, width}; }
  std::uint32_t at(int x, int y) const { return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }
};

Image blurred(Image source, double sigma) {
  Image target(source.width, source.height);
  blur(source.rect(), target.rect(), planBlur(sigma));
  return target;
}

TEST(RenderBlur, UniformColourStaysUniformAtEverySizeIncludingTheEdges) {
  const std::uint32_t colour = argb(255, 200, 40, 90);
  for (auto [w, h] : {std::pair{1, 1}, {1, 7}, {7, 1}, {2, 2}, {13, 9}, {100, 3}, {61, 47}}) {
    for (double sigma : {0.0, 1.0, 5.0, 40.0}) {
      Image out = blurred(Image(w, h, colour), sigma);
      for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
          ASSERT_EQ(out.at(x, y), colour) << w << "x" << h << " sigma " << sigma << " at " << x << "," << y;
    }
  }
}

TEST(RenderBlur, EmptyOrMismatchedRectsWriteNothing) {
  Image target(4, 4, 0xDEADBEEFu);
  Image source(4, 4, argb(255, 1, 2, 3));
  blur({source.pixels.data(), 0, 4, 4}, {target.pixels.data(), 0, 4, 4}, planBlur(10));
  blur({source.pixels.data(), 4, 0, 4}, {target.pixels.data(), 4, 0, 4}, planBlur(10));
  blur(source.rect(), {target.pixels.data(), 3, 4, 4}, planBlur(10));
  for (std::uint32_t p : target.pixels) EXPECT_EQ(p, 0xDEADBEEFu);
  EXPECT_TRUE(reduceAndBlur({nullptr, 5, 5, 5}, planBlur(3)).pixels.empty());
}

TEST(RenderBlur, NoStrengthCopiesThePixels) {
  Image source(5, 3);
  for (std::size_t i = 0; i < source.pixels.size(); ++i) source.pixels[i] = argb(255, std::uint32_t(i * 13), 7, 99);
  EXPECT_EQ(blurred(source, 0).pixels, source.pixels);
}

TEST(RenderBlur, InPlaceGivesTheSameResultAsIntoAnotherImage) {
  Image source(37, 23);
  std::mt19937 random(7);
  for (auto& p : source.pixels) p = argb(255, random() & 255, random() & 255, random() & 255);
  Image separate = blurred(source, 9);
  Image inPlace = source;
  blur(inPlace.rect(), inPlace.rect(), planBlur(9));
  EXPECT_EQ(inPlace.pixels, separate.pixels);
}

TEST(RenderBlur, BlursOnlyTheGivenRectOfALargerImage) {
  // A 10 × 10 rect inside a 30-wide image: pixels outside it stay as they were.
  Image image(30, 20, argb(255, 0, 0, 255));
  for (int y = 5; y < 15; ++y)
    for (int x = 10; x < 20; ++x) image.pixels[std::size_t(y) * 30 + std::size_t(x)] = argb(255, (x % 2) * 255, 0, 0);
  PixelRect inner{image.pixels.data() + 5 * 30 + 10, 10, 10, 30};
  blur(inner, inner, planBlur(4));
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 30; ++x) {
      bool inside = x >= 10 && x < 20 && y >= 5 && y < 15;
      if (!inside) {
        ASSERT_EQ(image.at(x, y), argb(255, 0, 0, 255)) << x << "," << y;
      }
    }
  // Inside, the stripes have been smoothed towards their mean.
  std::uint32_t red = channel(image.at(15, 10), 16);
  EXPECT_GT(red, 90u);
  EXPECT_LT(red, 165u);
}

// The spread of a sharp edge tells the strength actually applied: for a
// Gaussian the 16 % and 84 % points of the step lie 2 sigma apart.
double measuredSigma(double sigma) {
  const int w = 400, h = 8;
  Image edge(w, h);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x)
      edge.pixels[std::size_t(y) * w + std::size_t(x)] = x < w / 2 ? argb(255, 0, 0, 0) : argb(255, 255, 255, 255);
  Image out = blurred(edge, sigma);
  auto level = [&](int x) { return channel(out.at(x, h / 2), 8) / 255.0; };
  double low = 0, high = 0;
  for (int x = 1; x < w; ++x) {
    if (level(x - 1) < 0.16 && level(x) >= 0.16) low = x;
    if (level(x - 1) < 0.84 && level(x) >= 0.84) high = x;
  }
  return (high - low) / 2;
}

TEST(RenderBlur, SpreadsAnEdgeAsAGaussianOfTheAskedStrengthWould) {
  for (double sigma : {3.0, 8.0, 18.0, 36.0}) {
    EXPECT_NEAR(measuredSigma(sigma), sigma, std::max(1.5, sigma * 0.2)) << "sigma " << sigma;
  }
}

TEST(RenderBlur, FarFromAnEdgeColoursAreUntouched) {
  const int w = 300, h = 5;
  Image edge(w, h);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x)
      edge.pixels[std::size_t(y) * w + std::size_t(x)] = x < w / 2 ? argb(255, 10, 20, 30) : argb(255, 240, 230, 220);
  Image out = blurred(edge, 10);
  EXPECT_EQ(out.at(0, 2), argb(255, 10, 20, 30));
  EXPECT_EQ(out.at(w - 1, 2), argb(255, 240, 230, 220));
  EXPECT_EQ(out.at(60, 2), argb(255, 10, 20, 30));
}

TEST(RenderBlur, KeepsPremultipliedPixelsValid) {
  Image source(64, 48);
  std::mt19937 random(11);
  for (auto& p : source.pixels) {
    std::uint32_t a = random() & 255;
    p = argb(a, a ? random() % (a + 1) : 0, a ? random() % (a + 1) : 0, a ? random() % (a + 1) : 0);
  }
  for (double sigma : {1.0, 6.0, 25.0}) {
    Image out = blurred(source, sigma);
    for (std::uint32_t p : out.pixels) {
      std::uint32_t a = p >> 24;
      ASSERT_LE(channel(p, 16), a);
      ASSERT_LE(channel(p, 8), a);
      ASSERT_LE(channel(p, 0), a);
    }
  }
}

TEST(RenderBlur, ColourNextToTransparencyKeepsItsHue) {
  // Opaque red beside clear: the blurred edge fades in alpha but stays red,
  // with no dark fringe.
  const int w = 120, h = 6;
  Image source(w, h);
  for (int y = 0; y < h; ++y)
    for (int x = w / 2; x < w; ++x) source.pixels[std::size_t(y) * w + std::size_t(x)] = argb(255, 255, 0, 0);
  Image out = blurred(source, 6);
  for (int x = 0; x < w; ++x) {
    std::uint32_t p = out.at(x, 3);
    std::uint32_t a = p >> 24;
    if (a < 16) continue;
    EXPECT_NEAR(double(channel(p, 16)) / a, 1.0, 0.03) << x;
    EXPECT_EQ(channel(p, 8), 0u);
    EXPECT_EQ(channel(p, 0), 0u);
  }
}

// Each reduced pixel is the rounded mean of its block's samples: every
// step-th pixel of every step-th row, centred in the block; only the first
// `width` × `height` pixels of the image are reduced.
std::uint32_t blockMean(const Image& image, int width, int height, int factor, int bx, int by) {
  const int step = std::max(1, (factor + 1) / 3);
  auto first = [&](int start, int end) { return start + (end - start - 1) % step / 2; };
  int x1 = std::min((bx + 1) * factor, width), y1 = std::min((by + 1) * factor, height);
  std::uint32_t sums[4] = {0, 0, 0, 0}, count = 0;
  for (int y = first(by * factor, y1); y < y1; y += step)
    for (int x = first(bx * factor, x1); x < x1; x += step, ++count)
      for (int c = 0; c < 4; ++c) sums[c] += channel(image.at(x, y), 8 * c);
  std::uint32_t mean = 0;
  for (int c = 0; c < 4; ++c) mean |= ((sums[c] + count / 2) / count) << (8 * c);
  return mean;
}

TEST(RenderBlur, ReducedPixelsAreTheRoundedMeansOfTheirBlocksSamples) {
  std::mt19937 random(5);
  for (int factor : {2, 3, 4, 7, 9, 10, 18, 32}) {
    // Sizes with and without partial blocks at the right and bottom.
    for (auto [w, h] :
         {std::pair{factor * 5, factor * 3}, {factor * 6 + 1, factor * 2 + factor / 2}, {factor - 1, 1}}) {
      Image image(w + 3, h);
      // Saturated channels where lanes would spill, random ones elsewhere.
      for (auto& p : image.pixels) p = random() % 4 == 0 ? 0xFFFFFFFFu : std::uint32_t(random());
      PixelRect rect{image.pixels.data(), w, h, w + 3};
      BlurPlan plan;
      plan.factor = factor;
      ReducedImage reduced = reduce(rect, plan);
      ASSERT_EQ(reduced.width, (w + factor - 1) / factor);
      ASSERT_EQ(reduced.height, (h + factor - 1) / factor);
      for (int by = 0; by < reduced.height; ++by)
        for (int bx = 0; bx < reduced.width; ++bx)
          ASSERT_EQ(reduced.pixels[std::size_t(by) * std::size_t(reduced.width) + std::size_t(bx)],
                    blockMean(image, w, h, factor, bx, by))
              << "factor " << factor << ", " << w << "x" << h << ", block " << bx << "," << by;
    }
  }
}

TEST(RenderBlur, StrongerBlursWorkOnSmallerCopies) {
  int previous = 0;
  for (double sigma : {0.0, 2.0, 6.0, 20.0, 60.0}) {
    BlurPlan plan = planBlur(sigma);
    EXPECT_GE(plan.factor, previous);
    previous = plan.factor;
    ReducedImage reduced = reduceAndBlur(Image(90, 60, argb(255, 1, 1, 1)).rect(), plan);
    EXPECT_EQ(reduced.width, (90 + plan.factor - 1) / plan.factor);
    EXPECT_EQ(reduced.height, (60 + plan.factor - 1) / plan.factor);
  }
  EXPECT_EQ(planBlur(0).factor, 1);
  EXPECT_GT(planBlur(60).factor, 4);
}

}  // namespace
}  // namespace tessel::render
