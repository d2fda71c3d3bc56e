#pragma once

#include "phone/objc/runtime.h"
#include "phone/objc/strong.h"

namespace tessel::objc::gnu {

// A new NSNotification carrying `name` and `object`.
Strong makeNotification(id name, id object);

}  // namespace tessel::objc::gnu
