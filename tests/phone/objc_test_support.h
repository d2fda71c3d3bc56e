#pragma once

#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::objc {

// A new instance of the class of that name, from alloc and init.
inline Strong makeObject(const char* className) {
  using namespace literals;
  return Strong::adopt(send<id>(sendToClass<id>(objc_getClass(className), "alloc"_sel), "init"_sel));
}

inline Strong makeView(const char* className, Rect frame) {
  using namespace literals;
  return Strong::adopt(send<id>(sendToClass<id>(objc_getClass(className), "alloc"_sel), "initWithFrame:"_sel, frame));
}

inline unsigned long retainCountOf(id object) {
  using namespace literals;
  return send<unsigned long>(object, "retainCount"_sel);
}

}  // namespace tessel::objc
