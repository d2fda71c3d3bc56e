#pragma once

// The library's shared presentation state as the process sees it: twenty
// symbols under their own names and with the platform's types, refreshed
// each time a call into the library returns (libraryReturned). Objects are
// named without being kept alive; the two collections hold their elements
// without retaining them.

#include "controller/shared_state.h"
#include "phone/objc/geometry.h"
#include "phone/objc/runtime.h"

// CoreFoundation's arrays, as far as the binding makes and reads them. An
// array made with kCFTypeArrayCallBacks retains its elements and is an
// NSArray to the runtime; one made with no callbacks holds bare pointers.
extern "C" {
typedef long CFIndex;
typedef unsigned char Boolean;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFArray* CFArrayRef;
typedef struct __CFArray* CFMutableArrayRef;

struct CFArrayCallBacks {
  CFIndex version;
  const void* (*retain)(CFAllocatorRef allocator, const void* value);
  void (*release)(CFAllocatorRef allocator, const void* value);
  CFStringRef (*copyDescription)(const void* value);
  Boolean (*equal)(const void* value1, const void* value2);
};

extern const CFArrayCallBacks kCFTypeArrayCallBacks;

CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks);
CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef allocator, CFIndex capacity, const CFArrayCallBacks* callBacks);
void CFArrayAppendValue(CFMutableArrayRef array, const void* value);
void CFArrayRemoveAllValues(CFMutableArrayRef array);
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
}

#define TESSEL_EXPORTED __attribute__((visibility("default")))

extern "C" {
TESSEL_EXPORTED extern BOOL darkMode;
TESSEL_EXPORTED extern long activationMethod;
TESSEL_EXPORTED extern CFMutableArrayRef iconViews;
TESSEL_EXPORTED extern CFMutableArrayRef folders;
TESSEL_EXPORTED extern BOOL hasUnlockedOnce;
TESSEL_EXPORTED extern id bulletinViewController;
TESSEL_EXPORTED extern id globalViewSender;
TESSEL_EXPORTED extern id iconView;
TESSEL_EXPORTED extern id arrowView;
TESSEL_EXPORTED extern long arrowPosition;
TESSEL_EXPORTED extern int checkIconOriginY;
TESSEL_EXPORTED extern BOOL iconExistsInFolder;
TESSEL_EXPORTED extern double originToStartFrom;
TESSEL_EXPORTED extern int verticalOffset;
TESSEL_EXPORTED extern tessel::objc::Rect oldTesselFrame;
TESSEL_EXPORTED extern tessel::objc::Rect oldArrowFrame;
TESSEL_EXPORTED extern tessel::objc::Rect newTesselFrame;
TESSEL_EXPORTED extern tessel::objc::Rect intermediateTesselFrame;
TESSEL_EXPORTED extern tessel::objc::Rect intermediateArrowFrame;
TESSEL_EXPORTED extern double realKeyboardDisplacement;
}

namespace tessel::phone {

// Writes `state` into the exported symbols. Objects the host has freed are
// published as nil and left out of the collections.
void publishSharedState(const SharedState& state);

}  // namespace tessel::phone
