#include "imaging/average_color.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "imaging/channel_sums.h"

namespace tessel {
namespace {

// A byte of the copied pixels; past the end of the copy it reads as 0, since
// the last pixels of a narrow format read a little beyond the stored bytes.
std::uint8_t byteAt(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
  return offset < bytes.size() ? bytes[offset] : 0;
}

}  // namespace

host::Color averageColor(const host::Ref<host::Image>& image) {
  const std::vector<std::uint8_t> bytes = image->copyData();
  const std::size_t height = image->height();
  const std::size_t width = image->width();
  const ChannelSums sums = sumFirstThreeBytes(bytes, width, height, image->bytesPerRow(), image->bitsPerPixel() >> 3);
  const std::uint32_t sum0 = sums.first;
  const std::uint32_t sum1 = sums.second;
  const std::uint32_t sum2 = sums.third;

  // Single precision, multiplied in this order; a zero size makes it
  // infinite and the components not-a-number.
  const float factor = 1.0f / (static_cast<float>(height) * (static_cast<float>(width) * 255.0f));
  const double widened = static_cast<double>(factor);
  return host::Color::colorWithRedGreenBlueAlpha(static_cast<double>(sum0) * widened,
                                                 static_cast<double>(sum1) * widened,
                                                 static_cast<double>(sum2) * widened, 1.0);
}

host::Color mergedColor(host::Host& host, const host::Ref<host::Image>& image) {
  auto context = host.beginImageContext({1.0, 1.0});
  context->setInterpolationQuality(host::platform::kInterpolationMedium);
  context->drawImage(image, {0, 0, 1, 1}, host::platform::kBlendModeCopy, 1.0);
  const std::vector<std::uint8_t> pixel = context->bitmapData();
  // The context stores blue, green, red, alpha.
  const float red = static_cast<float>(byteAt(pixel, 2)) / 255.0f;
  const float green = static_cast<float>(byteAt(pixel, 1)) / 255.0f;
  const float blue = static_cast<float>(byteAt(pixel, 0)) / 255.0f;
  auto color = host::Color::colorWithRedGreenBlueAlpha(red, green, blue, 1.0);
  context->end();
  return color;
}

}  // namespace tessel
