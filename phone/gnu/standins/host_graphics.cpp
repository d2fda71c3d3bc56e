#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "phone/binding/platform_functions.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

// The toolkit's image contexts and the graphics library's bitmaps, found by
// the binding in the process by name as on the phone (the test binary
// exports them). Bitmaps store blue, green, red, alpha, premultiplied, four
// bytes a pixel, as the phone's do.
struct CGContext {
  std::size_t width = 0;
  std::size_t height = 0;
  double scale = 1;
  tessel::objc::Size size;
  std::vector<std::uint8_t> bytes;
  std::uint8_t fill[4] = {0, 0, 0, 0};
  int interpolationQuality = 0;
};

struct CGDataProvider {
  const struct CGImage* image;
};

struct CGImage {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint8_t> bytes;
  CGDataProvider provider{this};
};

struct CGPath {
  std::vector<std::string> elements;
};

namespace {

using namespace tessel::objc;
using namespace tessel::objc::literals;

constexpr std::size_t kBytesPerPixel = 4;

std::vector<std::unique_ptr<CGContext>>& openContexts() {
  static auto& contexts = *new std::vector<std::unique_ptr<CGContext>>();
  return contexts;
}

std::uint8_t byteOf(double component) {
  return static_cast<std::uint8_t>(std::lround(std::fmin(std::fmax(component, 0.0), 1.0) * 255.0));
}

struct ImageContent {
  CGImage image;
  Size size;
};

struct PathContent {
  CGPath path;
};

std::string pointText(const char* op, Point p) {
  return std::string(op) + " " + std::to_string(static_cast<int>(p.x)) + " " + std::to_string(static_cast<int>(p.y));
}

// A new image (autoreleased) holding the context's pixels as they are now.
id imageOf(const CGContext& context) {
  id image = sendToClass<id>(objc_getClass("UIImage"), "new"_sel);
  attachOwned<ImageContent>(image, ImageContent{{context.width, context.height, context.bytes, {}}, context.size});
  auto* content = findOwned<ImageContent>(image);
  content->image.provider.image = &content->image;
  return objc_autorelease(image);
}

// Nearest pixel of `image` for each pixel of `rect` (points) in `context`.
void draw(const CGImage& image, Rect rect, CGContext& context) {
  const auto left = static_cast<long>(std::lround(rect.origin.x * context.scale));
  const auto top = static_cast<long>(std::lround(rect.origin.y * context.scale));
  const auto width = static_cast<long>(std::lround(rect.size.width * context.scale));
  const auto height = static_cast<long>(std::lround(rect.size.height * context.scale));
  if (width <= 0 || height <= 0 || image.width == 0 || image.height == 0) return;
  for (long y = std::max(top, 0l); y < std::min(top + height, static_cast<long>(context.height)); ++y) {
    for (long x = std::max(left, 0l); x < std::min(left + width, static_cast<long>(context.width)); ++x) {
      const auto sourceX = static_cast<std::size_t>((x - left) * static_cast<long>(image.width) / width);
      const auto sourceY = static_cast<std::size_t>((y - top) * static_cast<long>(image.height) / height);
      const std::size_t from = (sourceY * image.width + sourceX) * kBytesPerPixel;
      const std::size_t to =
          (static_cast<std::size_t>(y) * context.width + static_cast<std::size_t>(x)) * kBytesPerPixel;
      for (std::size_t byte = 0; byte < kBytesPerPixel; ++byte) context.bytes[to + byte] = image.bytes[from + byte];
    }
  }
}

void defineUIImage(Class nsObject) {
  ClassBuilder builder("UIImage", nsObject);
  builder.addMethod("size"_sel, [](id self) { return findOwned<ImageContent>(self)->size; });
  builder.addMethod("CGImage"_sel, [](id self) -> CGImageRef { return &findOwned<ImageContent>(self)->image; });
  builder.addMethod("drawInRect:blendMode:alpha:"_sel, [](id self, Rect rect, int /*blendMode*/, double /*alpha*/) {
    if (!openContexts().empty()) draw(findOwned<ImageContent>(self)->image, rect, *openContexts().back());
  });
  builder.registerClass();
}

// The bytes a data provider hands out: a new object, owned by the caller.
void defineNSData(Class nsObject) {
  ClassBuilder builder("NSData", nsObject);
  builder.addMethod("length"_sel, [](id self) -> long {
    return static_cast<long>(findOwned<std::vector<std::uint8_t>>(self)->size());
  });
  builder.addMethod("bytes"_sel,
                    [](id self) -> const std::uint8_t* { return findOwned<std::vector<std::uint8_t>>(self)->data(); });
  builder.registerClass();
}

void defineUIBezierPath(Class nsObject) {
  ClassBuilder builder("UIBezierPath", nsObject);
  builder.addMethod("init"_sel, [](id self) {
    attachOwned<PathContent>(self);
    return self;
  });
  builder.addMethod("moveToPoint:"_sel, [](id self, Point p) {
    findOwned<PathContent>(self)->path.elements.push_back(pointText("move", p));
  });
  builder.addMethod("addLineToPoint:"_sel, [](id self, Point p) {
    findOwned<PathContent>(self)->path.elements.push_back(pointText("line", p));
  });
  builder.addMethod("closePath"_sel, [](id self) { findOwned<PathContent>(self)->path.elements.push_back("close"); });
  builder.addMethod("CGPath"_sel, [](id self) -> CGPathRef { return &findOwned<PathContent>(self)->path; });
  builder.registerClass();
}

// A shape layer keeps a copy of the path it is given, as the platform's
// retains its path.
void defineCAShapeLayer(Class nsObject) {
  ClassBuilder builder("CAShapeLayer", nsObject);
  builder.addMethod("setPath:"_sel, [](id self, CGPathRef path) {
    auto* content = findOwned<PathContent>(self);
    if (content == nullptr) content = attachOwned<PathContent>(self);
    content->path = path == nullptr ? CGPath() : *path;
  });
  builder.registerClass();
}

}  // namespace

extern "C" {

void UIGraphicsBeginImageContextWithOptions(tessel::objc::Size size, BOOL /*opaque*/, double scale) {
  auto context = std::make_unique<CGContext>();
  // Scale 0 is the main screen's, a scale of 2 here.
  context->scale = scale == 0 ? 2 : scale;
  context->size = size;
  context->width = static_cast<std::size_t>(std::ceil(size.width * context->scale));
  context->height = static_cast<std::size_t>(std::ceil(size.height * context->scale));
  context->bytes.assign(context->width * context->height * kBytesPerPixel, 0);
  openContexts().push_back(std::move(context));
}

CGContextRef UIGraphicsGetCurrentContext() { return openContexts().empty() ? nullptr : openContexts().back().get(); }

id UIGraphicsGetImageFromCurrentImageContext() {
  return openContexts().empty() ? nullptr : imageOf(*openContexts().back());
}

void UIGraphicsEndImageContext() {
  if (!openContexts().empty()) openContexts().pop_back();
}

void CGContextSetRGBFillColor(CGContextRef context, double red, double green, double blue, double alpha) {
  const std::uint8_t premultiplied[4] = {byteOf(blue * alpha), byteOf(green * alpha), byteOf(red * alpha),
                                         byteOf(alpha)};
  std::copy(std::begin(premultiplied), std::end(premultiplied), context->fill);
}

void CGContextFillRect(CGContextRef context, tessel::objc::Rect rect) {
  const auto left = static_cast<long>(std::lround(rect.origin.x * context->scale));
  const auto top = static_cast<long>(std::lround(rect.origin.y * context->scale));
  const auto right = static_cast<long>(std::lround((rect.origin.x + rect.size.width) * context->scale));
  const auto bottom = static_cast<long>(std::lround((rect.origin.y + rect.size.height) * context->scale));
  for (long y = std::max(top, 0l); y < std::min(bottom, static_cast<long>(context->height)); ++y) {
    for (long x = std::max(left, 0l); x < std::min(right, static_cast<long>(context->width)); ++x) {
      const std::size_t at =
          (static_cast<std::size_t>(y) * context->width + static_cast<std::size_t>(x)) * kBytesPerPixel;
      std::copy(std::begin(context->fill), std::end(context->fill), context->bytes.begin() + static_cast<long>(at));
    }
  }
}

void CGContextSetInterpolationQuality(CGContextRef context, int quality) { context->interpolationQuality = quality; }

void* CGBitmapContextGetData(CGContextRef context) { return context->bytes.data(); }
std::size_t CGBitmapContextGetBytesPerRow(CGContextRef context) { return context->width * kBytesPerPixel; }
std::size_t CGBitmapContextGetHeight(CGContextRef context) { return context->height; }

std::size_t CGImageGetWidth(CGImageRef image) { return image->width; }
std::size_t CGImageGetHeight(CGImageRef image) { return image->height; }
std::size_t CGImageGetBytesPerRow(CGImageRef image) { return image->width * kBytesPerPixel; }
std::size_t CGImageGetBitsPerPixel(CGImageRef /*image*/) { return kBytesPerPixel * 8; }
CGDataProviderRef CGImageGetDataProvider(CGImageRef image) { return &image->provider; }

CFDataRef CGDataProviderCopyData(CGDataProviderRef provider) {
  id data = sendToClass<id>(objc_getClass("NSData"), "new"_sel);
  attachOwned<std::vector<std::uint8_t>>(data, provider->image->bytes);
  return reinterpret_cast<CFDataRef>(data);
}

}  // extern "C"

namespace tessel::objc::gnu {

void defineHostGraphics(Class nsObject) {
  defineUIImage(nsObject);
  defineNSData(nsObject);
  defineUIBezierPath(nsObject);
  defineCAShapeLayer(nsObject);
}

int openImageContexts() { return static_cast<int>(openContexts().size()); }

int interpolationQualityOfCurrentContext() {
  return openContexts().empty() ? -1 : openContexts().back()->interpolationQuality;
}

std::vector<std::string> pathElementsOf(id pathOrShapeLayer) {
  const auto* content = findOwned<PathContent>(pathOrShapeLayer);
  return content == nullptr ? std::vector<std::string>() : content->path.elements;
}

}  // namespace tessel::objc::gnu
