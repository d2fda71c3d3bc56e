#include <functional>
#include <utility>

#include "phone/gnu/standins/library_stand_ins.h"
#include "phone/objc/implementation.h"
#include "phone/objc/methods.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

std::function<void(id)>& layoutWitness() {
  static auto& witness = *new std::function<void(id)>();
  return witness;
}

}  // namespace

// Beneath whatever replaces SBIconView's layout later: the witness sees the
// world as the view's own layout finds it.
void installIconViewLayoutWitness() {
  Class iconView = objc_getClass("SBIconView");
  if (iconView == nullptr) return;
  replaceMethod(iconView, "layoutSubviews"_sel, [](const Implementation<void()>& own, id self) {
    if (layoutWitness()) layoutWitness()(self);
    own(self);
  });
}

// An icon view of the stand-in home screen shows no icon and is not in the dock.
void fillInIconView() {
  Class iconView = objc_getClass("SBIconView");
  if (iconView == nullptr) return;
  if (!class_respondsToSelector(iconView, "icon"_sel))
    addMethod(iconView, "icon"_sel, [](id) -> id { return nullptr; });
  if (!class_respondsToSelector(iconView, "isInDock"_sel)) {
    addMethod(iconView, "isInDock"_sel, [](id) -> BOOL { return false; });
  }
}

// The panel's view clips to its bounds; the stand-in draws nothing to clip.
void fillInView() {
  Class view = objc_getClass("UIView");
  if (view != nullptr && !class_respondsToSelector(view, "setClipsToBounds:"_sel)) {
    addMethod(view, "setClipsToBounds:"_sel, [](id, BOOL) {});
  }
}

void setIconViewLayoutWitness(std::function<void(id iconView)> witness) { layoutWitness() = std::move(witness); }

}  // namespace tessel::objc::gnu
