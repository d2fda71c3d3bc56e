#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/runtime.h"

namespace tessel::objc::gnu {

void installHostStandIns() {
  Class nsObject = objc_getClass("NSObject");
  if (nsObject == nullptr || objc_getClass("NSString") != nullptr) return;
  defineHostFoundation(nsObject);
  defineHostViews(objc_getClass("UIView"));
  defineHostRecognizers(objc_getClass("UIGestureRecognizer"));
  defineHostAlertView(nsObject);
  defineHostGraphics(nsObject);
}

}  // namespace tessel::objc::gnu
