#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/color.h"
#include "host/geometry.h"
#include "host/object.h"

namespace tessel::host {

// `UIImage` with its `CGImage` facts: the pixels as stored, row by row.
class Image : public virtual Object {
 public:
  virtual Size size() const { return {}; }
  virtual std::size_t width() const { return 0; }
  virtual std::size_t height() const { return 0; }
  virtual std::size_t bytesPerRow() const { return 0; }
  virtual std::size_t bitsPerPixel() const { return 0; }
  // `CGDataProviderCopyData`: a copy of the stored bytes.
  virtual std::vector<std::uint8_t> copyData() const { return {}; }
};

// An image context: a bitmap stored blue, green, red, alpha.
class ImageContext : public virtual Object {
 public:
  virtual void setFillColor(const Color& /*color*/) {}
  virtual void fillRect(const Rect& /*rect*/) {}
  virtual void setInterpolationQuality(int /*quality*/) {}
  // `drawInRect:blendMode:alpha:` of an image into this context.
  virtual void drawImage(const Ref<Image>& /*image*/, const Rect& /*rect*/, int /*blendMode*/, double /*alpha*/) {}
  // `CGBitmapContextGetData`: the context's bytes.
  virtual std::vector<std::uint8_t> bitmapData() const { return {}; }
  // `UIGraphicsGetImageFromCurrentImageContext`.
  virtual Ref<Image> imageFromContext() const { return {}; }
  // `UIGraphicsEndImageContext`.
  virtual void end() {}
};

}  // namespace tessel::host
