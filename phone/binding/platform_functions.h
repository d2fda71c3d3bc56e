#pragma once

// The platform's C functions that the binding calls. The dylib links
// against CoreFoundation, whose functions bind at load; it links against
// neither the toolkit nor the graphics library: the home screen has both
// loaded, so each of their functions is found in the process by name, once.
// One that is not there behaves as a message to nil.

#include <cstddef>
#include <cstdint>

#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"

extern "C" {
typedef long CFIndex;
typedef const struct __CFData* CFDataRef;
typedef const void* CFTypeRef;
typedef struct CGContext* CGContextRef;
typedef struct CGImage* CGImageRef;
typedef struct CGDataProvider* CGDataProviderRef;
typedef const struct CGPath* CGPathRef;

typedef const struct __CFString* CFStringRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFNotificationCenter* CFNotificationCenterRef;
typedef void (*CFNotificationCallback)(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                       const void* object, CFDictionaryRef userInfo);

// CoreFoundation is linked: these bind at load.
extern double kCFCoreFoundationVersionNumber;
CFIndex CFDataGetLength(CFDataRef data);
const std::uint8_t* CFDataGetBytePtr(CFDataRef data);
void CFRelease(CFTypeRef object);
CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void);
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* object,
                                     CFIndex suspensionBehavior);
}

namespace tessel::phone {

struct PlatformFunctions {
  // The toolkit's image contexts.
  void (*UIGraphicsBeginImageContextWithOptions)(objc::Size size, BOOL opaque, double scale) = nullptr;
  CGContextRef (*UIGraphicsGetCurrentContext)() = nullptr;
  id (*UIGraphicsGetImageFromCurrentImageContext)() = nullptr;
  void (*UIGraphicsEndImageContext)() = nullptr;
  // The graphics library: drawing into a context and reading its bitmap.
  void (*CGContextSetRGBFillColor)(CGContextRef context, double red, double green, double blue, double alpha) = nullptr;
  void (*CGContextFillRect)(CGContextRef context, objc::Rect rect) = nullptr;
  void (*CGContextSetInterpolationQuality)(CGContextRef context, int quality) = nullptr;
  void* (*CGBitmapContextGetData)(CGContextRef context) = nullptr;
  std::size_t (*CGBitmapContextGetBytesPerRow)(CGContextRef context) = nullptr;
  std::size_t (*CGBitmapContextGetHeight)(CGContextRef context) = nullptr;
  // The graphics library: an image's stored pixels.
  std::size_t (*CGImageGetWidth)(CGImageRef image) = nullptr;
  std::size_t (*CGImageGetHeight)(CGImageRef image) = nullptr;
  std::size_t (*CGImageGetBytesPerRow)(CGImageRef image) = nullptr;
  std::size_t (*CGImageGetBitsPerPixel)(CGImageRef image) = nullptr;
  CGDataProviderRef (*CGImageGetDataProvider)(CGImageRef image) = nullptr;
  CFDataRef (*CGDataProviderCopyData)(CGDataProviderRef provider) = nullptr;
};

// Looked up in the process on first use and kept.
const PlatformFunctions& platformFunctions();

// Calls `function` when the process has it; otherwise yields what a message
// to nil would.
template <typename R, typename... Parameters, typename... Args>
R callIfPresent(R (*function)(Parameters...), Args... args) {
  if (function == nullptr) return objc::emptyResult<R>();
  return function(args...);
}

}  // namespace tessel::phone
