#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/image.h"

namespace tessel::sim {

// A bitmap context stored blue, green, red, alpha (premultiplied), as the
// phone's image contexts are. Points map to pixels by `scale`; the origin is
// the top left corner.
class SimImageContext : public host::ImageContext {
 public:
  SimImageContext(const host::Size& size, bool opaque, double scale);

  // |host::ImageContext|
  void setFillColor(const host::Color& color) override { fill_ = color; }
  void fillRect(const host::Rect& rect) override;
  void setInterpolationQuality(int quality) override { interpolationQuality_ = quality; }
  void drawImage(const host::Ref<host::Image>& image, const host::Rect& rect, int blendMode, double alpha) override;
  std::vector<std::uint8_t> bitmapData() const override { return bytes_; }
  host::Ref<host::Image> imageFromContext() const override;
  void end() override { ended_ = true; }

  std::size_t pixelWidth() const { return width_; }
  std::size_t pixelHeight() const { return height_; }
  bool ended() const { return ended_; }

  // `kCGBlendModeCopy`: the source replaces what is there.
  static constexpr int kBlendModeCopy = 17;

 private:
  struct Premultiplied {
    double r = 0, g = 0, b = 0, a = 0;
  };
  // The pixel columns or rows that a span of points covers, clipped.
  void pixelSpan(double from, double length, std::size_t limit, std::size_t& first, std::size_t& last) const;
  void put(std::size_t x, std::size_t y, const Premultiplied& color, bool copy);

  std::size_t width_;
  std::size_t height_;
  double scale_;
  std::vector<std::uint8_t> bytes_;
  host::Color fill_ = host::Color::blackColor();
  int interpolationQuality_ = 0;
  bool ended_ = false;
};

}  // namespace tessel::sim
