#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/gesture_recognizer.h"
#include "host/library_delegates.h"
#include "phone/binding/bridge.h"
#include "phone/binding/phone_host.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/instance_variable.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using objc::retainCountOf;

struct Senders {
  std::vector<id> received;
};

// A target as the library's controller is one: it answers the action's selector.
Class targetClass() {
  static const Class cls = [] {
    objc::ClassBuilder builder("HostTestActionTarget", objc_getClass("NSObject"));
    builder.addMethod("handleIconHeldFromSender:"_sel,
                      [](id self, id sender) { objc::findOwned<Senders>(self)->received.push_back(sender); });
    return builder.registerClass();
  }();
  return cls;
}

objc::Strong makeTarget() {
  objc::Strong target = objc::Strong::adopt(objc::sendToClass<id>(targetClass(), "new"_sel));
  objc::attachOwned<Senders>(target.get());
  return target;
}

TEST(PhoneBinding, RecognizerMadeByTheHostSendsItsActionToTheTarget) {
  PhoneHost host;
  objc::Strong target = makeTarget();
  auto recognizer = host.makeSwipeGestureRecognizer(referenceTo(target.get()), host::action::handleIconHeldFromSender);
  ASSERT_TRUE(recognizer);
  // The toolkit does not keep a recognizer's target alive.
  EXPECT_EQ(retainCountOf(target.get()), 1u);
  EXPECT_EQ(retainCountOf(objectOf(recognizer)), 1u);

  objc::gnu::fireGestureRecognizer(objectOf(recognizer));
  objc::gnu::fireGestureRecognizer(objectOf(recognizer));
  EXPECT_EQ(objc::findOwned<Senders>(target.get())->received,
            (std::vector<id>{objectOf(recognizer), objectOf(recognizer)}));
}

TEST(PhoneBinding, EachRecognizerFactoryMakesItsToolkitClass) {
  PhoneHost host;
  objc::Strong target = makeTarget();
  auto targetReference = referenceTo(target.get());
  const auto& action = host::action::handleIconHeldFromSender;

  EXPECT_EQ(host.makeSwipeGestureRecognizer(targetReference, action)->objectClass()->name(),
            "UISwipeGestureRecognizer");
  EXPECT_EQ(host.makeTapGestureRecognizer(targetReference, action)->objectClass()->name(), "UITapGestureRecognizer");
  EXPECT_EQ(host.makeLongPressGestureRecognizer(targetReference, action)->objectClass()->name(),
            "UILongPressGestureRecognizer");

  auto tap = host.makeTapGestureRecognizer(targetReference, action);
  objc::gnu::fireGestureRecognizer(objectOf(tap));
  EXPECT_EQ(objc::findOwned<Senders>(target.get())->received, std::vector<id>{objectOf(tap)});
}

TEST(PhoneBinding, AlertIsMadeThroughTheVariadicInitialiser) {
  PhoneHost host;
  objc::Weak made;
  {
    auto alert = host.makeAlertView("Tessel", "A message", "OK");
    ASSERT_TRUE(alert);
    EXPECT_EQ(objc::gnu::alertTextsOf(objectOf(alert)), (std::vector<std::string>{"Tessel", "A message", "OK"}));
    EXPECT_EQ(retainCountOf(objectOf(alert)), 1u);
    made = objc::Weak(objectOf(alert));
  }
  EXPECT_FALSE(made.lock());

  auto untitled = host.makeAlertView(std::nullopt, "message", std::nullopt);
  EXPECT_EQ(objc::gnu::alertTextsOf(objectOf(untitled)), (std::vector<std::string>{"<nil>", "message", "<nil>"}));
}

TEST(PhoneBinding, InstanceVariableReadsTheObjectItHolds) {
  static const Class holderClass = [] {
    objc::ClassBuilder builder("HostTestIvarHolder", objc_getClass("UIView"));
    builder.addInstanceVariable<id>("_iconImageView");
    return builder.registerClass();
  }();
  PhoneHost host;
  objc::Strong holder = objc::Strong::adopt(objc::sendToClass<id>(holderClass, "new"_sel));
  objc::Strong imageView = objc::makeObject("UIView");
  objc::InstanceVariable<id>(holderClass, "_iconImageView").of(holder.get()) = imageView.get();

  auto read = host.runtime()->instanceVariable(referenceTo(holder.get()), "_iconImageView");
  EXPECT_TRUE(read == referenceTo(imageView.get()));
  EXPECT_EQ(retainCountOf(imageView.get()), 2u);
  EXPECT_FALSE(host.runtime()->instanceVariable(referenceTo(holder.get()), "_noSuchVariable"));
  EXPECT_FALSE(host.runtime()->instanceVariable(nullptr, "_iconImageView"));
}

}  // namespace
}  // namespace tessel::phone
