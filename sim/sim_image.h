#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "host/image.h"

namespace tessel::sim {

// How an image's bytes are to be read as colours.
enum class PixelLayout {
  rgba,               // red, green, blue, alpha; not premultiplied (a PNG with alpha)
  rgb,                // red, green, blue (a PNG without alpha)
  bgraPremultiplied,  // what image contexts store
};

// `UIImage` over a real pixel buffer, rows top to bottom, possibly padded.
class SimImage : public host::Image {
 public:
  SimImage(std::size_t width, std::size_t height, std::size_t bytesPerRow, std::size_t bitsPerPixel, PixelLayout layout,
           std::vector<std::uint8_t> bytes, double scale = 1);

  // |host::Image|
  host::Size size() const override { return {width_ / scale_, height_ / scale_}; }
  std::size_t width() const override { return width_; }
  std::size_t height() const override { return height_; }
  std::size_t bytesPerRow() const override { return bytesPerRow_; }
  std::size_t bitsPerPixel() const override { return bitsPerPixel_; }
  std::vector<std::uint8_t> copyData() const override { return bytes_; }

  const std::vector<std::uint8_t>& bytes() const { return bytes_; }
  PixelLayout layout() const { return layout_; }
  double scale() const { return scale_; }
  // A pixel's colour, components 0…1, not premultiplied; clear outside.
  host::Color pixel(std::size_t x, std::size_t y) const;
  // The one colour of every pixel, when they are all alike.
  std::optional<host::Color> uniformColor() const;

 private:
  std::size_t width_;
  std::size_t height_;
  std::size_t bytesPerRow_;
  std::size_t bitsPerPixel_;
  PixelLayout layout_;
  std::vector<std::uint8_t> bytes_;
  double scale_;
  // Images never change: the answer is worked out once.
  mutable std::optional<std::optional<host::Color>> uniform_;
};

// An image over raw bytes with the given geometry, read as RGBA (32 bits
// per pixel) or RGB (fewer). The bytes are kept as given.
std::shared_ptr<SimImage> imageFromBytes(std::size_t width, std::size_t height, std::size_t bytesPerRow,
                                         std::size_t bitsPerPixel, std::vector<std::uint8_t> bytes);

// An image of one colour, stored as an image context stores it.
std::shared_ptr<SimImage> solidImage(std::size_t width, std::size_t height, const host::Color& color);

}  // namespace tessel::sim
