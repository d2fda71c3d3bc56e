#include "sim/sim_image_context.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "sim/sim_image.h"

namespace tessel::sim {

namespace {

std::size_t pixels(double points, double scale) {
  double n = std::ceil(points * scale - 1e-9);
  return n > 0 ? static_cast<std::size_t>(n) : 0;
}

std::uint8_t toByte(double component) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

// How much of source pixel i (spanning [i, i+1)) lies inside [from, to).
double overlap(double i, double from, double to) { return std::max(0.0, std::min(i + 1, to) - std::max(i, from)); }

}  // namespace

SimImageContext::SimImageContext(const host::Size& size, bool opaque, double scale)
    : width_(pixels(size.width, scale)),
      height_(pixels(size.height, scale)),
      scale_(scale),
      bytes_(width_ * height_ * 4, 0) {
  if (opaque) {
    for (std::size_t i = 3; i < bytes_.size(); i += 4) bytes_[i] = 255;
  }
}

void SimImageContext::pixelSpan(double from, double length, std::size_t limit, std::size_t& first,
                                std::size_t& last) const {
  // A pixel is covered when its centre lies inside the span.
  double start = std::ceil(from * scale_ - 0.5);
  double end = std::ceil((from + length) * scale_ - 0.5);
  first = static_cast<std::size_t>(std::clamp(start, 0.0, static_cast<double>(limit)));
  last = static_cast<std::size_t>(std::clamp(end, 0.0, static_cast<double>(limit)));
}

void SimImageContext::put(std::size_t x, std::size_t y, const Premultiplied& c, bool copy) {
  std::uint8_t* p = &bytes_[(y * width_ + x) * 4];
  if (copy) {
    p[0] = toByte(c.b);
    p[1] = toByte(c.g);
    p[2] = toByte(c.r);
    p[3] = toByte(c.a);
    return;
  }
  double keep = 1 - c.a;
  p[0] = toByte(c.b + p[0] / 255.0 * keep);
  p[1] = toByte(c.g + p[1] / 255.0 * keep);
  p[2] = toByte(c.r + p[2] / 255.0 * keep);
  p[3] = toByte(c.a + p[3] / 255.0 * keep);
}

void SimImageContext::fillRect(const host::Rect& rect) {
  double a = std::clamp(fill_.alpha, 0.0, 1.0);
  Premultiplied color{fill_.red * a, fill_.green * a, fill_.blue * a, a};
  std::size_t x0, x1, y0, y1;
  pixelSpan(rect.x, rect.width, width_, x0, x1);
  pixelSpan(rect.y, rect.height, height_, y0, y1);
  if (toByte(a) != 255) {
    for (std::size_t y = y0; y < y1; ++y) {
      for (std::size_t x = x0; x < x1; ++x) put(x, y, color, false);
    }
    return;
  }
  // An opaque fill covers what was there: the same four bytes everywhere,
  // so the first row is filled and the others copy it.
  if (x0 >= x1 || y0 >= y1) return;
  const std::uint8_t pixel[4] = {toByte(color.b), toByte(color.g), toByte(color.r), 255};
  const std::size_t spanBytes = (x1 - x0) * 4;
  std::uint8_t* first = &bytes_[(y0 * width_ + x0) * 4];
  for (std::size_t x = 0; x < spanBytes; x += 4) std::memcpy(first + x, pixel, 4);
  for (std::size_t y = y0 + 1; y < y1; ++y) std::memcpy(&bytes_[(y * width_ + x0) * 4], first, spanBytes);
}

void SimImageContext::drawImage(const host::Ref<host::Image>& image, const host::Rect& rect, int blendMode,
                                double alpha) {
  const auto* source = dynamic_cast<const SimImage*>(image.get());
  if (!source || source->width() == 0 || source->height() == 0 || rect.width <= 0 || rect.height <= 0) return;
  std::size_t x0, x1, y0, y1;
  pixelSpan(rect.x, rect.width, width_, x0, x1);
  pixelSpan(rect.y, rect.height, height_, y0, y1);
  double sx = source->width() / (rect.width * scale_);
  double sy = source->height() / (rect.height * scale_);
  double fade = std::clamp(alpha, 0.0, 1.0);
  for (std::size_t y = y0; y < y1; ++y) {
    // The part of the source that this destination pixel covers, averaged
    // with each source pixel weighted by how much of it lies inside.
    double top = (y - rect.y * scale_) * sy;
    double bottom = top + sy;
    for (std::size_t x = x0; x < x1; ++x) {
      double left = (x - rect.x * scale_) * sx;
      double right = left + sx;
      Premultiplied sum;
      double weight = 0;
      auto firstRow = static_cast<std::size_t>(std::max(0.0, std::floor(top)));
      auto firstColumn = static_cast<std::size_t>(std::max(0.0, std::floor(left)));
      for (std::size_t j = firstRow; j < source->height() && j < bottom; ++j) {
        double wy = overlap(static_cast<double>(j), top, bottom);
        for (std::size_t i = firstColumn; i < source->width() && i < right; ++i) {
          double w = wy * overlap(static_cast<double>(i), left, right);
          host::Color c = source->pixel(i, j);
          sum.r += c.red * c.alpha * w;
          sum.g += c.green * c.alpha * w;
          sum.b += c.blue * c.alpha * w;
          sum.a += c.alpha * w;
          weight += w;
        }
      }
      if (weight <= 0) continue;
      Premultiplied color{sum.r / weight * fade, sum.g / weight * fade, sum.b / weight * fade, sum.a / weight * fade};
      put(x, y, color, blendMode == kBlendModeCopy);
    }
  }
}

host::Ref<host::Image> SimImageContext::imageFromContext() const {
  return host::Ref<host::Image>(
      std::make_shared<SimImage>(width_, height_, width_ * 4, 32, PixelLayout::bgraPremultiplied, bytes_, scale_));
}

}  // namespace tessel::sim
