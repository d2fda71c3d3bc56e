#include "render/blur.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tessel::render {
namespace {

// A small packed ARGB32 image, rows without padding.
struct Small {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

inline std::uint32_t pack(std::uint32_t b, std::uint32_t g, std::uint32_t r, std::uint32_t a) {
  return b | (g << 8) | (r << 16) | (a << 24);
}

// One sampled row across the blocks that are whole in width: where the
// first block's samples start in this row and the next sampled one, and
// the blocks' sums, two channels per 32-bit word with 16 bits each (blue
// and red; green and alpha).
struct BlockRow {
  const std::uint32_t* first;
  const std::uint32_t* next;
  int factor;
  int step;
  std::uint32_t* blueRed;
  std::uint32_t* greenAlpha;
};

// Adds `Samples` pixels, `step` apart, of each of `count` blocks; a fixed
// count lets the compiler unroll what is nearly all of the work (0: the
// count is `samples`).
template <int Samples>
void addFullBlocks(const BlockRow& row, int count, int samples = Samples) {
  const std::uint32_t* p = row.first;
  const std::uint32_t* next = row.next;
  for (int bx = 0; bx < count; ++bx, p += row.factor, next += row.factor) {
    // Rows are read a few apart, too far for the hardware to guess the
    // next one: ask for it while this one is summed.
    __builtin_prefetch(next);
    std::uint32_t low = 0, high = 0;
    for (int n = 0; n < (Samples ? Samples : samples); ++n) {
      std::uint32_t v = p[n * row.step];
      low += v & 0x00FF00FFu;
      high += (v >> 8) & 0x00FF00FFu;
    }
    row.blueRed[bx] += low;
    row.greenAlpha[bx] += high;
  }
}

// Averages factor × factor blocks; the partial blocks at the right and
// bottom edges average the pixels they hold. Large blocks are sampled on a
// sparser grid: the blur that follows hides the difference, and reading a
// third of the rows is what makes a full-screen blur affordable.
Small downsample(const PixelRect& source, int factor) {
  Small out;
  out.width = (source.width + factor - 1) / factor;
  out.height = (source.height + factor - 1) / factor;
  out.pixels.resize(std::size_t(out.width) * std::size_t(out.height));
  const int step = std::max(1, (factor + 1) / 3);
  // Where each block's samples start across a row and how many it takes;
  // the same for every row.
  auto firstOf = [&](int start, int end) { return start + (end - start - 1) % step / 2; };
  std::vector<int> firstX(std::size_t(out.width)), samplesX(std::size_t(out.width));
  for (int bx = 0; bx < out.width; ++bx) {
    int x0 = bx * factor;
    int x1 = std::min(x0 + factor, source.width);
    firstX[std::size_t(bx)] = firstOf(x0, x1);
    samplesX[std::size_t(bx)] = (x1 - firstX[std::size_t(bx)] + step - 1) / step;
  }
  // Every block but the last across takes the same samples at the same
  // offsets, so their loop has a fixed count.
  const int fullBlocks = source.width % factor == 0 ? out.width : out.width - 1;
  const int fullSamples = samplesX[0];
  // A whole block's sums, in the lanes of BlockRow: a block never takes
  // more than 4 × 4 samples, far from the 257 that would spill a lane.
  std::vector<std::uint32_t> blueRed(std::size_t(out.width)), greenAlpha(std::size_t(out.width));
  for (int by = 0; by < out.height; ++by) {
    std::fill(blueRed.begin(), blueRed.end(), 0u);
    std::fill(greenAlpha.begin(), greenAlpha.end(), 0u);
    int y0 = by * factor;
    int y1 = std::min(y0 + factor, source.height);
    std::uint32_t rows = 0;
    for (int y = firstOf(y0, y1); y < y1; y += step, ++rows) {
      const std::uint32_t* row = source.pixels + std::size_t(y) * std::size_t(source.stride);
      const std::uint32_t* next = row + std::size_t(std::min(step, source.height - 1 - y)) * std::size_t(source.stride);
      BlockRow blocks{row + firstX[0], next + firstX[0], factor, step, blueRed.data(), greenAlpha.data()};
      switch (fullSamples) {
        case 2:
          addFullBlocks<2>(blocks, fullBlocks);
          break;
        case 3:
          addFullBlocks<3>(blocks, fullBlocks);
          break;
        case 4:
          addFullBlocks<4>(blocks, fullBlocks);
          break;
        default:
          addFullBlocks<0>(blocks, fullBlocks, fullSamples);
      }
      for (int bx = fullBlocks; bx < out.width; ++bx) {
        std::size_t i = std::size_t(bx);
        const std::uint32_t* p = row + firstX[i];
        for (int n = 0; n < samplesX[i]; ++n, p += step) {
          blueRed[i] += *p & 0x00FF00FFu;
          greenAlpha[i] += (*p >> 8) & 0x00FF00FFu;
        }
      }
    }
    std::uint32_t* outRow = out.pixels.data() + std::size_t(by) * std::size_t(out.width);
    std::uint32_t lastCount = 0;
    std::uint64_t inverse = 0;
    for (int bx = 0; bx < out.width; ++bx) {
      std::size_t i = std::size_t(bx);
      std::uint32_t count = rows * std::uint32_t(samplesX[i]);
      if (count != lastCount) {
        // Rounded up, the reciprocal divides any sum below 2^16 exactly.
        inverse = ((std::uint64_t(1) << 32) + count - 1) / count;
        lastCount = count;
      }
      std::uint32_t half = count / 2;
      auto average = [&](std::uint32_t sum) { return std::uint32_t((std::uint64_t(sum + half) * inverse) >> 32); };
      outRow[bx] = pack(average(blueRed[i] & 0xFFFFu), average(greenAlpha[i] & 0xFFFFu), average(blueRed[i] >> 16),
                        average(greenAlpha[i] >> 16));
    }
  }
  return out;
}

// Window sums keep two channels in one 32-bit word, 16 bits each (blue
// and red; green and alpha): a sum of at most 255 × (2 × 64 + 1) fits a
// lane, and the running sum's additions and subtractions carry correctly
// because each lane's true value stays within 0…65535.
constexpr int kMaxRadius = 64;
constexpr std::uint32_t kLanes = 0x00FF00FFu;

// Divides both 16-bit lanes of a window sum by the box width with one
// multiply by a 16.16 fixed-point reciprocal, in 64 bits so that neither
// lane's product spills into the other.
struct Divider {
  explicit Divider(int width) : inverse((65536u + std::uint32_t(width) / 2) / std::uint32_t(width)) {}
  std::uint32_t operator()(std::uint32_t sum) const {
    std::uint64_t spread = (sum & 0xFFFFu) | (std::uint64_t(sum >> 16) << 32);
    std::uint64_t product = spread * inverse + 0x0000800000008000ull;
    return std::uint32_t(((product >> 16) & 0xFFu) | ((product >> 32) & 0x00FF0000u));
  }
  std::uint64_t inverse;
};

inline std::uint32_t lanesLow(std::uint32_t p) { return p & kLanes; }
inline std::uint32_t lanesHigh(std::uint32_t p) { return (p >> 8) & kLanes; }

// One box pass along rows, with a running window sum and extended edges.
void boxAlongRows(const Small& in, Small& out, int radius) {
  const int w = in.width;
  const Divider divide(2 * radius + 1);
  for (int y = 0; y < in.height; ++y) {
    const std::uint32_t* p = in.pixels.data() + std::size_t(y) * std::size_t(w);
    std::uint32_t* q = out.pixels.data() + std::size_t(y) * std::size_t(w);
    std::uint32_t low = std::uint32_t(radius + 1) * lanesLow(p[0]);
    std::uint32_t high = std::uint32_t(radius + 1) * lanesHigh(p[0]);
    for (int i = 1; i <= radius; ++i) {
      std::uint32_t v = p[std::min(i, w - 1)];
      low += lanesLow(v);
      high += lanesHigh(v);
    }
    for (int x = 0; x < w; ++x) {
      q[x] = divide(low) | (divide(high) << 8);
      std::uint32_t add = p[std::min(x + radius + 1, w - 1)];
      std::uint32_t sub = p[std::max(x - radius, 0)];
      low += lanesLow(add) - lanesLow(sub);
      high += lanesHigh(add) - lanesHigh(sub);
    }
  }
}

// One box pass down the columns, keeping running sums per column so that
// memory is read row by row.
void boxAlongColumns(const Small& in, Small& out, int radius) {
  const int w = in.width;
  const int h = in.height;
  const Divider divide(2 * radius + 1);
  auto row = [&](int y) { return in.pixels.data() + std::size_t(std::clamp(y, 0, h - 1)) * std::size_t(w); };
  std::vector<std::uint32_t> low(std::size_t(w), 0), high(std::size_t(w), 0);
  for (int i = -radius; i <= radius; ++i) {
    const std::uint32_t* p = row(i);
    for (int x = 0; x < w; ++x) {
      low[std::size_t(x)] += lanesLow(p[x]);
      high[std::size_t(x)] += lanesHigh(p[x]);
    }
  }
  for (int y = 0; y < h; ++y) {
    std::uint32_t* q = out.pixels.data() + std::size_t(y) * std::size_t(w);
    const std::uint32_t* add = row(y + radius + 1);
    const std::uint32_t* sub = row(y - radius);
    for (int x = 0; x < w; ++x) {
      std::size_t i = std::size_t(x);
      q[x] = divide(low[i]) | (divide(high[i]) << 8);
      low[i] += lanesLow(add[x]) - lanesLow(sub[x]);
      high[i] += lanesHigh(add[x]) - lanesHigh(sub[x]);
    }
  }
}

Small copyOf(const PixelRect& source) {
  Small out{source.width, source.height, std::vector<std::uint32_t>(std::size_t(source.width) * source.height)};
  for (int y = 0; y < source.height; ++y)
    std::memcpy(out.pixels.data() + std::size_t(y) * std::size_t(source.width),
                source.pixels + std::size_t(y) * std::size_t(source.stride), std::size_t(source.width) * 4);
  return out;
}

void copyInto(const Small& small, const PixelRect& target) {
  for (int y = 0; y < target.height; ++y)
    std::memcpy(target.pixels + std::size_t(y) * std::size_t(target.stride),
                small.pixels.data() + std::size_t(y) * std::size_t(small.width), std::size_t(target.width) * 4);
}

}  // namespace

BlurPlan planBlur(double sigma) {
  BlurPlan plan;
  if (!(sigma >= 0.5)) return plan;
  plan.factor = std::clamp(int(sigma / 2), 1, 32);
  // Block averaging and bilinear enlargement already spread the image by
  // about a quarter of the factor; the box passes make up the rest.
  double f = plan.factor;
  double remaining = std::sqrt(std::max(sigma * sigma - f * f / 4, 0.25)) / f;
  // Three boxes of two neighbouring odd widths whose variances add up to
  // the Gaussian's.
  double variance = remaining * remaining;
  int lower = int(std::floor(std::sqrt(4 * variance + 1)));
  if (lower % 2 == 0) --lower;
  int upper = lower + 2;
  int lowerCount = int(std::lround((12 * variance - 3.0 * lower * lower - 12.0 * lower - 9) / (-4.0 * lower - 4)));
  lowerCount = std::clamp(lowerCount, 0, 3);
  for (int i = 0; i < 3; ++i) plan.radii[i] = ((i < lowerCount ? lower : upper) - 1) / 2;
  return plan;
}

ReducedImage reduce(const PixelRect& source, const BlurPlan& plan) {
  ReducedImage reduced;
  if (source.width <= 0 || source.height <= 0 || !source.pixels) return reduced;
  // A block row must fit the 16-bit lanes of the sums in downsample.
  int factor = std::clamp(plan.factor, 1, 256);
  Small small = factor > 1 ? downsample(source, factor) : copyOf(source);
  reduced.width = small.width;
  reduced.height = small.height;
  reduced.factor = factor;
  reduced.pixels = std::move(small.pixels);
  return reduced;
}

void blurReduced(ReducedImage& image, const BlurPlan& plan) {
  if (image.width <= 0 || image.height <= 0) return;
  Small small{image.width, image.height, std::move(image.pixels)};
  Small scratch{small.width, small.height, std::vector<std::uint32_t>(small.pixels.size())};
  for (int planned : plan.radii) {
    int radius = std::min(planned, kMaxRadius);
    if (radius <= 0) continue;
    boxAlongRows(small, scratch, radius);
    boxAlongColumns(scratch, small, radius);
  }
  image.pixels = std::move(small.pixels);
}

ReducedImage reduceAndBlur(const PixelRect& source, const BlurPlan& plan) {
  ReducedImage reduced = reduce(source, plan);
  blurReduced(reduced, plan);
  return reduced;
}

void setEnlargedSource(cairo_t* cr, ReducedImage& image, double x, double y) {
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(image.pixels.data()), CAIRO_FORMAT_ARGB32,
                                          image.width, image.height, image.width * 4);
  cairo_pattern_t* pattern = cairo_pattern_create_for_surface(surface);
  cairo_surface_destroy(surface);
  // Pattern space is device pixels divided by the factor.
  cairo_matrix_t matrix;
  cairo_get_matrix(cr, &matrix);
  cairo_matrix_t toDevice = matrix;
  cairo_matrix_t fromDevice;
  cairo_matrix_init_translate(&fromDevice, -x, -y);
  cairo_matrix_t shrink;
  cairo_matrix_init_scale(&shrink, 1.0 / image.factor, 1.0 / image.factor);
  cairo_matrix_multiply(&fromDevice, &fromDevice, &shrink);
  cairo_matrix_multiply(&toDevice, &toDevice, &fromDevice);
  cairo_pattern_set_matrix(pattern, &toDevice);
  cairo_pattern_set_filter(pattern, image.factor > 1 ? CAIRO_FILTER_BILINEAR : CAIRO_FILTER_NEAREST);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  cairo_set_source(cr, pattern);
  cairo_pattern_destroy(pattern);
}

void blur(const PixelRect& source, const PixelRect& target, const BlurPlan& plan) {
  if (source.width <= 0 || source.height <= 0 || !source.pixels || !target.pixels) return;
  if (target.width != source.width || target.height != source.height) return;
  ReducedImage reduced = reduceAndBlur(source, plan);
  if (reduced.factor == 1) {
    copyInto(Small{reduced.width, reduced.height, std::move(reduced.pixels)}, target);
    return;
  }
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(target.pixels), CAIRO_FORMAT_ARGB32,
                                          target.width, target.height, target.stride * 4);
  cairo_t* cr = cairo_create(surface);
  setEnlargedSource(cr, reduced, 0, 0);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_paint(cr);
  cairo_destroy(cr);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
}

}  // namespace tessel::render
