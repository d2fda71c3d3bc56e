#include "phone/gnu/standins/library_stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/methods.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

Class recognizerClass(const char* name) {
  if (Class existing = objc_getClass(name)) return existing;
  Class base = objc_getClass("UIGestureRecognizer");
  if (base == nullptr) return nullptr;
  ClassBuilder builder(name, base);
  return builder.registerClass();
}

// The settings the library gives a recognizer; the stand-in recognizes
// only when fired, so it keeps none of them.
void acceptSetting(Class cls, SEL setter) {
  if (cls != nullptr && !class_respondsToSelector(cls, setter)) addMethod(cls, setter, [](id, unsigned long) {});
}

}  // namespace

void fillInRecognizers() {
  Class swipe = recognizerClass("UISwipeGestureRecognizer");
  Class tap = recognizerClass("UITapGestureRecognizer");
  Class longPress = recognizerClass("UILongPressGestureRecognizer");
  acceptSetting(swipe, "setDirection:"_sel);
  acceptSetting(tap, "setNumberOfTapsRequired:"_sel);
  acceptSetting(longPress, "setNumberOfTapsRequired:"_sel);
  acceptSetting(longPress, "setNumberOfTouchesRequired:"_sel);
}

}  // namespace tessel::objc::gnu
