#include "phone/binding/platform_functions.h"

#if TESSEL_OBJC_APPLE_RUNTIME
extern "C" void* dlsym(void* handle, const char* symbol);
namespace {
// RTLD_DEFAULT: every image loaded into the process.
void* const kEveryLoadedImage = reinterpret_cast<void*>(-2);
}  // namespace
#else
#include <dlfcn.h>
namespace {
void* const kEveryLoadedImage = RTLD_DEFAULT;
}  // namespace
#endif

namespace tessel::phone {
namespace {

template <typename Function>
void find(Function& slot, const char* name) {
  slot = reinterpret_cast<Function>(dlsym(kEveryLoadedImage, name));
}

// The member's name is the function's: one spelling for both.
#define TESSEL_FIND(functions, name) find(functions.name, #name)

PlatformFunctions lookUp() {
  PlatformFunctions functions;
  TESSEL_FIND(functions, UIGraphicsBeginImageContextWithOptions);
  TESSEL_FIND(functions, UIGraphicsGetCurrentContext);
  TESSEL_FIND(functions, UIGraphicsGetImageFromCurrentImageContext);
  TESSEL_FIND(functions, UIGraphicsEndImageContext);
  TESSEL_FIND(functions, CGContextSetRGBFillColor);
  TESSEL_FIND(functions, CGContextFillRect);
  TESSEL_FIND(functions, CGContextSetInterpolationQuality);
  TESSEL_FIND(functions, CGBitmapContextGetData);
  TESSEL_FIND(functions, CGBitmapContextGetBytesPerRow);
  TESSEL_FIND(functions, CGBitmapContextGetHeight);
  TESSEL_FIND(functions, CGImageGetWidth);
  TESSEL_FIND(functions, CGImageGetHeight);
  TESSEL_FIND(functions, CGImageGetBytesPerRow);
  TESSEL_FIND(functions, CGImageGetBitsPerPixel);
  TESSEL_FIND(functions, CGImageGetDataProvider);
  TESSEL_FIND(functions, CGDataProviderCopyData);
  return functions;
}

#undef TESSEL_FIND

}  // namespace

const PlatformFunctions& platformFunctions() {
  static const PlatformFunctions functions = lookUp();
  return functions;
}

}  // namespace tessel::phone
