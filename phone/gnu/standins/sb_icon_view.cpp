#include "phone/gnu/standins/class_definitions.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/implementation.h"
#include "phone/objc/instance_variable.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

const InstanceVariable<long>& layoutPasses() {
  static const InstanceVariable<long> passes(objc_getClass("SBIconView"), "_layoutPasses");
  return passes;
}

}  // namespace

Class defineSBIconView(Class uiView) {
  ClassBuilder builder("SBIconView", uiView);
  builder.addInstanceVariable<long>("_layoutPasses");
  builder.addMethod("layoutSubviews"_sel, [](const Implementation<void()>& inherited, id self) {
    inherited(self);
    ++layoutPasses().of(self);
  });
  return builder.registerClass();
}

long layoutPassesOf(id iconView) { return iconView == nullptr ? 0 : layoutPasses().of(iconView); }

}  // namespace tessel::objc::gnu
