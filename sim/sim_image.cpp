#include "sim/sim_image.h"

#include <algorithm>
#include <cmath>

namespace tessel::sim {

namespace {

std::uint8_t toByte(double component) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

}  // namespace

SimImage::SimImage(std::size_t width, std::size_t height, std::size_t bytesPerRow, std::size_t bitsPerPixel,
                   PixelLayout layout, std::vector<std::uint8_t> bytes, double scale)
    : width_(width),
      height_(height),
      bytesPerRow_(bytesPerRow),
      bitsPerPixel_(bitsPerPixel),
      layout_(layout),
      bytes_(std::move(bytes)),
      scale_(scale > 0 ? scale : 1) {}

host::Color SimImage::pixel(std::size_t x, std::size_t y) const {
  if (x >= width_ || y >= height_) return host::Color::clearColor();
  std::size_t step = bitsPerPixel_ / 8;
  std::size_t at = y * bytesPerRow_ + x * step;
  auto byte = [&](std::size_t i) -> double {
    return i < step && at + i < bytes_.size() ? bytes_[at + i] / 255.0 : 0.0;
  };
  switch (layout_) {
    case PixelLayout::rgba:
      return {byte(0), byte(1), byte(2), step >= 4 ? byte(3) : 1.0};
    case PixelLayout::rgb:
      return {byte(0), byte(1), byte(2), 1.0};
    case PixelLayout::bgraPremultiplied: {
      double a = byte(3);
      if (a <= 0) return host::Color::clearColor();
      return {std::min(byte(2) / a, 1.0), std::min(byte(1) / a, 1.0), std::min(byte(0) / a, 1.0), a};
    }
  }
  return host::Color::clearColor();
}

std::optional<host::Color> SimImage::uniformColor() const {
  if (uniform_) return *uniform_;
  uniform_ = std::optional<host::Color>();
  if (width_ == 0 || height_ == 0) return std::nullopt;
  host::Color first = pixel(0, 0);
  for (std::size_t y = 0; y < height_; ++y) {
    for (std::size_t x = 0; x < width_; ++x) {
      if (!(pixel(x, y) == first)) return std::nullopt;
    }
  }
  uniform_ = first;
  return first;
}

std::shared_ptr<SimImage> imageFromBytes(std::size_t width, std::size_t height, std::size_t bytesPerRow,
                                         std::size_t bitsPerPixel, std::vector<std::uint8_t> bytes) {
  PixelLayout layout = bitsPerPixel >= 32 ? PixelLayout::rgba : PixelLayout::rgb;
  return std::make_shared<SimImage>(width, height, bytesPerRow, bitsPerPixel, layout, std::move(bytes));
}

std::shared_ptr<SimImage> solidImage(std::size_t width, std::size_t height, const host::Color& color) {
  double a = std::clamp(color.alpha, 0.0, 1.0);
  std::uint8_t pixel[4] = {toByte(color.blue * a), toByte(color.green * a), toByte(color.red * a), toByte(a)};
  std::vector<std::uint8_t> bytes(width * height * 4);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = pixel[i % 4];
  return std::make_shared<SimImage>(width, height, width * 4, 32, PixelLayout::bgraPremultiplied, std::move(bytes));
}

}  // namespace tessel::sim
