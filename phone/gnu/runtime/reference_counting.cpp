#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

// The GNU runtime counts no references: retain, release and autorelease are
// messages to the object, answered by the stand-in root class.

using tessel::objc::selector;
using tessel::objc::send;

extern "C" id objc_retain(id object) { return send<id>(object, selector<"retain">()); }

extern "C" void objc_release(id object) { send<void>(object, selector<"release">()); }

extern "C" id objc_autorelease(id object) { return send<id>(object, selector<"autorelease">()); }
