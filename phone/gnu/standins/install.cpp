#include "phone/gnu/standins/class_definitions.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/gnu/standins/library_stand_ins.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/runtime.h"

namespace tessel::objc::gnu {

void installStandIns() {
  if (objc_getClass("NSObject") != nullptr) return;
  Class nsObject = defineNSObject();
  defineSBIconView(defineUIView(nsObject));
  defineUIGestureRecognizer(nsObject);
  defineNSNotification(nsObject);
  defineNSNotificationCenter(nsObject);
  installHostStandIns();
  installLibraryStandIns();
}

}  // namespace tessel::objc::gnu
