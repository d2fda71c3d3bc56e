#include <utility>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/block.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {

using namespace objc::literals;

// `animateWithDuration:animations:completion:` of the class of views: the
// toolkit copies both blocks and runs them later; each returns to the runtime
// through the library.
void PhoneObject::animateWithDuration(double duration, host::Block animations, host::Completion completion) {
  objc::Block<void()> animationsBlock;
  if (animations) {
    animationsBlock = objc::makeBlock<void()>([animations = std::move(animations)] {
      animations();
      libraryReturned();
    });
  }
  objc::Block<void(BOOL)> completionBlock;
  if (completion) {
    completionBlock = objc::makeBlock<void(BOOL)>([completion = std::move(completion)](BOOL finished) {
      completion(finished != 0);
      libraryReturned();
    });
  }
  objc::send(object_.get(), "animateWithDuration:animations:completion:"_sel, duration, animationsBlock.object(),
             completionBlock.object());
}

}  // namespace tessel::phone
