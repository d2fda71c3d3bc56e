#include "phone/objc/runtime.h"

// The GNU runtime has object_getClass only as an inline in its own header;
// its objects begin with their class pointer.
extern "C" Class object_getClass(id object) { return object == nullptr ? nullptr : *reinterpret_cast<Class*>(object); }
