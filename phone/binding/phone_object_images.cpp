#include <cstddef>
#include <cstdint>
#include <vector>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/binding/platform_functions.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// The image's graphics image, which the image keeps.
CGImageRef graphicsImageOf(id image) { return objc::send<CGImageRef>(image, "CGImage"_sel); }

std::vector<std::uint8_t> bytesOf(const void* start, std::size_t count) {
  if (start == nullptr) return {};
  const auto* bytes = static_cast<const std::uint8_t*>(start);
  return {bytes, bytes + count};
}

}  // namespace

host::Size PhoneObject::size() const { return toHost(objc::send<objc::Size>(object_.get(), "size"_sel)); }

std::size_t PhoneObject::width() const {
  return callIfPresent(platformFunctions().CGImageGetWidth, graphicsImageOf(object_.get()));
}

std::size_t PhoneObject::height() const {
  return callIfPresent(platformFunctions().CGImageGetHeight, graphicsImageOf(object_.get()));
}

std::size_t PhoneObject::bytesPerRow() const {
  return callIfPresent(platformFunctions().CGImageGetBytesPerRow, graphicsImageOf(object_.get()));
}

std::size_t PhoneObject::bitsPerPixel() const {
  return callIfPresent(platformFunctions().CGImageGetBitsPerPixel, graphicsImageOf(object_.get()));
}

std::vector<std::uint8_t> PhoneObject::copyData() const {
  const PlatformFunctions& functions = platformFunctions();
  CGImageRef image = graphicsImageOf(object_.get());
  if (image == nullptr) return {};
  CGDataProviderRef provider = callIfPresent(functions.CGImageGetDataProvider, image);
  if (provider == nullptr) return {};
  CFDataRef data = callIfPresent(functions.CGDataProviderCopyData, provider);
  if (data == nullptr) return {};
  std::vector<std::uint8_t> bytes = bytesOf(CFDataGetBytePtr(data), static_cast<std::size_t>(CFDataGetLength(data)));
  CFRelease(data);
  return bytes;
}

host::Ref<host::ImageContext> PhoneImageContext::begin(const host::Size& size, bool opaque, double scale) {
  const PlatformFunctions& functions = platformFunctions();
  if (functions.UIGraphicsBeginImageContextWithOptions == nullptr || functions.UIGraphicsGetCurrentContext == nullptr) {
    return {};
  }
  functions.UIGraphicsBeginImageContextWithOptions(toRuntime(size), static_cast<BOOL>(opaque), scale);
  CGContextRef context = functions.UIGraphicsGetCurrentContext();
  if (context == nullptr) return {};
  return host::make<PhoneImageContext>(context);
}

void PhoneImageContext::setFillColor(const host::Color& color) {
  callIfPresent(platformFunctions().CGContextSetRGBFillColor, graphicsContext(), color.red, color.green, color.blue,
                color.alpha);
}

void PhoneImageContext::fillRect(const host::Rect& rect) {
  callIfPresent(platformFunctions().CGContextFillRect, graphicsContext(), toRuntime(rect));
}

void PhoneImageContext::setInterpolationQuality(int quality) {
  callIfPresent(platformFunctions().CGContextSetInterpolationQuality, graphicsContext(), quality);
}

// The image draws itself into the current context, which is this one.
void PhoneImageContext::drawImage(const host::Ref<host::Image>& image, const host::Rect& rect, int blendMode,
                                  double alpha) {
  if (graphicsContext() == nullptr) return;
  objc::send(objectOf(image), "drawInRect:blendMode:alpha:"_sel, toRuntime(rect), blendMode, alpha);
}

std::vector<std::uint8_t> PhoneImageContext::bitmapData() const {
  const PlatformFunctions& functions = platformFunctions();
  CGContextRef context = graphicsContext();
  if (context == nullptr) return {};
  const std::size_t length = callIfPresent(functions.CGBitmapContextGetBytesPerRow, context) *
                             callIfPresent(functions.CGBitmapContextGetHeight, context);
  return bytesOf(callIfPresent(functions.CGBitmapContextGetData, context), length);
}

// The answer is autoreleased; the reference retains it.
host::Ref<host::Image> PhoneImageContext::imageFromContext() const {
  if (graphicsContext() == nullptr) return {};
  return referenceTo<host::Image>(callIfPresent(platformFunctions().UIGraphicsGetImageFromCurrentImageContext));
}

void PhoneImageContext::end() {
  if (ended_) return;
  ended_ = true;
  callIfPresent(platformFunctions().UIGraphicsEndImageContext);
}

}  // namespace tessel::phone
