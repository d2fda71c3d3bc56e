#include "phone/gnu/standins/class_definitions.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/instance_variable.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

struct RecognizerVariables {
  // Not retained, as the toolkit does not retain a recognizer's target.
  InstanceVariable<id> target;
  InstanceVariable<SEL> action;
};

const RecognizerVariables& variables() {
  static const RecognizerVariables recognizer{{objc_getClass("UIGestureRecognizer"), "_target"},
                                              {objc_getClass("UIGestureRecognizer"), "_action"}};
  return recognizer;
}

}  // namespace

Class defineUIGestureRecognizer(Class nsObject) {
  ClassBuilder builder("UIGestureRecognizer", nsObject);
  builder.addInstanceVariable<id>("_target");
  builder.addInstanceVariable<SEL>("_action");
  builder.addMethod("initWithTarget:action:"_sel, [nsObject](id self, id target, SEL action) {
    self = sendSuper<id>(self, nsObject, "init"_sel);
    if (self != nullptr) {
      variables().target.of(self) = target;
      variables().action.of(self) = action;
    }
    return self;
  });
  return builder.registerClass();
}

void fireGestureRecognizer(id recognizer) {
  if (recognizer == nullptr) return;
  send<void>(variables().target.of(recognizer), variables().action.of(recognizer), recognizer);
}

}  // namespace tessel::objc::gnu
