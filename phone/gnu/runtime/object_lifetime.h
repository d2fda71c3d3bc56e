#pragma once

#include "phone/objc/runtime.h"

// What the GNU runtime's stand-in root class calls as an object's life ends
// or is handed to the current autorelease pool.
namespace tessel::objc::gnu {

// Every weak reference to `object` reads nil from now on.
void clearWeakReferencesTo(id object);

// `object` is released when the innermost autorelease pool ends.
void autoreleaseLater(id object);

}  // namespace tessel::objc::gnu
