#pragma once

#include <cairo.h>

#include <cstdint>
#include <vector>

namespace tessel::render {

// A rectangle of premultiplied ARGB32 pixels (cairo's image format) inside
// an image whose rows are `stride` pixels apart.
struct PixelRect {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  int stride = 0;
};

// How a blur of a given strength is carried out: on a copy made `factor`
// times smaller, with three box passes of these radii, then enlarged back.
struct BlurPlan {
  int factor = 1;
  int radii[3] = {0, 0, 0};
};

// The plan that approximates a Gaussian of standard deviation `sigma`
// (in pixels) at the lowest cost that still looks smooth.
BlurPlan planBlur(double sigma);

// A blurred copy of some pixels, `factor` times smaller; each of its pixels
// stands for a factor × factor block of the original.
struct ReducedImage {
  int width = 0;
  int height = 0;
  int factor = 1;
  std::vector<std::uint32_t> pixels;
};

// Reduces and blurs `source`; edges are extended, so the borders keep
// their colour instead of fading.
ReducedImage reduceAndBlur(const PixelRect& source, const BlurPlan& plan);

// The two halves of reduceAndBlur: the reduced copy alone (what the blur
// depends on, and so what a cached blur is keyed on), then its blur.
ReducedImage reduce(const PixelRect& source, const BlurPlan& plan);
void blurReduced(ReducedImage& image, const BlurPlan& plan);

// Makes `image`, enlarged back with bilinear filtering, the source of `cr`,
// with its top-left corner at device pixel (x, y). The image must outlive
// the source.
void setEnlargedSource(cairo_t* cr, ReducedImage& image, double x, double y);

// Blurs `source` into `target` (same size; they may be the same pixels).
void blur(const PixelRect& source, const PixelRect& target, const BlurPlan& plan);

}  // namespace tessel::render
