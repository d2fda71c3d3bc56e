#include "fuzz/targets/png_target.h"

#include "fuzz/targets/scratch_directory.h"

namespace tessel::fuzz {

PngReading loadPngFile(std::string_view bytes) {
  PngReading reading;
  reading.path = (scratchDirectory() / "png" / "picture.png").string();
  writeScratchFile(reading.path, bytes);
  reading.load = sim::loadPng(reading.path);
  if (const auto& image = reading.load.image) {
    // Reading pixels through the image's own geometry finds a buffer that
    // does not match it.
    image->pixel(0, 0);
    image->pixel(image->width() - 1, image->height() - 1);
    image->uniformColor();
  }
  return reading;
}

std::optional<std::string> pngReadingProblem(const PngReading& reading) {
  const auto& load = reading.load;
  if (!load.image) {
    if (load.error.find(reading.path) == std::string::npos)
      return "an error that does not name the file: " + load.error;
    return std::nullopt;
  }
  if (!load.error.empty()) return "a picture with an error: " + load.error;
  if (load.tooLarge) return "a picture said to be too large";
  const auto& image = *load.image;
  std::size_t width = image.width();
  std::size_t height = image.height();
  if (width == 0 || height == 0 || width * height > sim::kMaxPngPixels) {
    return "a picture of " + std::to_string(width) + " x " + std::to_string(height) + " pixels";
  }
  bool rgb = image.layout() == sim::PixelLayout::rgb && image.bitsPerPixel() == 24;
  bool rgba = image.layout() == sim::PixelLayout::rgba && image.bitsPerPixel() == 32;
  if (!rgb && !rgba) return "a picture of " + std::to_string(image.bitsPerPixel()) + " bits a pixel in another layout";
  if (image.bytesPerRow() != width * image.bitsPerPixel() / 8) {
    return "rows of " + std::to_string(image.bytesPerRow()) + " bytes for " + std::to_string(width) + " pixels";
  }
  if (image.bytes().size() != image.bytesPerRow() * height) {
    return std::to_string(image.bytes().size()) + " bytes for " + std::to_string(height) + " rows";
  }
  return std::nullopt;
}

}  // namespace tessel::fuzz
