#include <vector>

#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/methods.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

// Where a view's own coordinates start in its window's: the frames' origins
// of the view and its superviews, the window's own frame excepted. A view
// with no superview stands for the window.
Point originInWindow(id view) {
  Point origin;
  for (id current = view; current != nullptr;) {
    id superview = send<id>(current, "superview"_sel);
    if (superview == nullptr) break;
    const Rect frame = send<Rect>(current, "frame"_sel);
    origin.x += frame.origin.x;
    origin.y += frame.origin.y;
    current = superview;
  }
  return origin;
}

// From `from`'s coordinates to `to`'s; nil is the window.
Rect convert(Rect rect, id from, id to) {
  const Point start = originInWindow(from);
  const Point end = originInWindow(to);
  rect.origin.x += start.x - end.x;
  rect.origin.y += start.y - end.y;
  return rect;
}

}  // namespace

void defineHostViews(Class uiView) {
  // A copy of the list, as the toolkit answers.
  addMethod(uiView, "subviews"_sel, [](id self) { return objc_autorelease(makeArray(subviewsOf(self)).release()); });
  addMethod(uiView, "convertRect:toView:"_sel, [](id self, Rect rect, id view) { return convert(rect, self, view); });
  addMethod(uiView, "convertRect:fromView:"_sel, [](id self, Rect rect, id view) { return convert(rect, view, self); });
  // Without a screen there is nothing to animate: the new values are set at
  // once and the animation has finished.
  addClassMethod(uiView, "animateWithDuration:animations:completion:"_sel,
                 [](Class, double, id animations, id completion) {
                   if (animations != nullptr) reinterpret_cast<void (^)(void)>(animations)();
                   if (completion != nullptr) reinterpret_cast<void (^)(BOOL)>(completion)(true);
                 });
}

void defineHostRecognizers(Class uiGestureRecognizer) {
  for (const char* name : {"UISwipeGestureRecognizer", "UITapGestureRecognizer", "UILongPressGestureRecognizer"}) {
    ClassBuilder builder(name, uiGestureRecognizer);
    builder.registerClass();
  }
}

}  // namespace tessel::objc::gnu
