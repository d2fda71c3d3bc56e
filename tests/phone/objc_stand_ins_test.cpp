#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::objc {
namespace {

using namespace literals;
using gnu::subviewsOf;

// Receives actions and notifications, and writes what it got into its log.
struct Received {
  std::vector<id> senders;
  std::vector<id> names;
};

Class receiverClass() {
  static const Class cls = [] {
    ClassBuilder builder("TestReceiver", objc_getClass("NSObject"));
    builder.addMethod("handle:"_sel, [](id self, id sender) { findOwned<Received>(self)->senders.push_back(sender); });
    builder.addMethod("noticed:"_sel, [](id self, id notification) {
      findOwned<Received>(self)->names.push_back(send<id>(notification, "name"_sel));
      findOwned<Received>(self)->senders.push_back(send<id>(notification, "object"_sel));
    });
    return builder.registerClass();
  }();
  return cls;
}

Strong makeReceiver() {
  Strong receiver = Strong::adopt(sendToClass<id>(receiverClass(), "new"_sel));
  attachOwned<Received>(receiver.get());
  return receiver;
}

const Received& receivedBy(const Strong& receiver) { return *findOwned<Received>(receiver.get()); }

TEST(ObjcStandIns, ViewKeepsSubviewsAliveAndOrphansThemWhenItGoes) {
  Strong parent = makeObject("UIView");
  Weak child;
  Strong survivor = makeObject("UIView");
  {
    Strong added = makeObject("SBIconView");
    child = Weak(added);
    send<void>(parent.get(), "addSubview:"_sel, added.get());
    send<void>(parent.get(), "addSubview:"_sel, survivor.get());
  }
  ASSERT_TRUE(child.lock());
  EXPECT_EQ(subviewsOf(parent.get()), (std::vector<id>{child.lock().get(), survivor.get()}));
  EXPECT_EQ(send<id>(survivor.get(), "superview"_sel), parent.get());

  parent = nullptr;
  EXPECT_FALSE(child.lock());
  EXPECT_EQ(send<id>(survivor.get(), "superview"_sel), nullptr);
}

TEST(ObjcStandIns, AddingToAnotherViewMovesTheSubview) {
  Strong first = makeObject("UIView");
  Strong second = makeObject("UIView");
  Strong moving = makeObject("UIView");
  send<void>(first.get(), "addSubview:"_sel, moving.get());
  send<void>(second.get(), "addSubview:"_sel, moving.get());

  EXPECT_TRUE(subviewsOf(first.get()).empty());
  EXPECT_EQ(subviewsOf(second.get()), std::vector<id>{moving.get()});
  EXPECT_EQ(send<id>(moving.get(), "superview"_sel), second.get());
  EXPECT_EQ(retainCountOf(moving.get()), 2u);

  send<void>(moving.get(), "removeFromSuperview"_sel);
  EXPECT_TRUE(subviewsOf(second.get()).empty());
  EXPECT_EQ(send<id>(moving.get(), "superview"_sel), nullptr);
  EXPECT_EQ(retainCountOf(moving.get()), 1u);
}

TEST(ObjcStandIns, RemovingTheLastReferenceFromItsSuperviewFreesTheView) {
  Strong parent = makeObject("UIView");
  Weak removed;
  {
    Strong view = makeObject("UIView");
    removed = Weak(view);
    send<void>(parent.get(), "addSubview:"_sel, view.get());
  }
  send<void>(removed.lock().get(), "removeFromSuperview"_sel);
  EXPECT_FALSE(removed.lock());
}

TEST(ObjcStandIns, ViewHoldsTagAndFrame) {
  Strong view = makeView("SBIconView", Rect{{4, 8}, {60, 74}});
  send<void>(view.get(), "setTag:"_sel, 1234L);
  EXPECT_EQ(send<long>(view.get(), "tag"_sel), 1234);
  EXPECT_EQ(send<Rect>(view.get(), "frame"_sel), (Rect{{4, 8}, {60, 74}}));
  EXPECT_EQ(send<Rect>(view.get(), "bounds"_sel), (Rect{{0, 0}, {60, 74}}));
}

TEST(ObjcStandIns, IconViewRecordsItsOwnLayoutPasses) {
  Strong iconView = makeObject("SBIconView");
  Strong plainView = makeObject("UIView");
  send<void>(iconView.get(), "layoutSubviews"_sel);
  send<void>(iconView.get(), "layoutSubviews"_sel);
  send<void>(plainView.get(), "layoutSubviews"_sel);
  EXPECT_EQ(gnu::layoutPassesOf(iconView.get()), 2);
}

TEST(ObjcStandIns, KindTestsFollowTheClassChain) {
  Strong iconView = makeObject("SBIconView");
  EXPECT_EQ(send<Class>(iconView.get(), "class"_sel), objc_getClass("SBIconView"));
  EXPECT_EQ(sendToClass<Class>(objc_getClass("SBIconView"), "class"_sel), objc_getClass("SBIconView"));
  EXPECT_TRUE(send<BOOL>(iconView.get(), "isKindOfClass:"_sel, objc_getClass("UIView")));
  EXPECT_FALSE(send<BOOL>(iconView.get(), "isKindOfClass:"_sel, objc_getClass("UIGestureRecognizer")));
  EXPECT_TRUE(send<BOOL>(iconView.get(), "respondsToSelector:"_sel, "addSubview:"_sel));
  EXPECT_FALSE(send<BOOL>(iconView.get(), "respondsToSelector:"_sel, "initWithTarget:action:"_sel));
}

TEST(ObjcStandIns, GestureRecognizerSendsActionToATargetItDoesNotRetain) {
  Strong target = makeReceiver();
  id recognizer = send<id>(sendToClass<id>(objc_getClass("UIGestureRecognizer"), "alloc"_sel),
                           "initWithTarget:action:"_sel, target.get(), "handle:"_sel);
  Strong owned = Strong::adopt(recognizer);
  EXPECT_EQ(retainCountOf(target.get()), 1u);

  gnu::fireGestureRecognizer(recognizer);
  gnu::fireGestureRecognizer(recognizer);
  EXPECT_EQ(receivedBy(target).senders, (std::vector<id>{recognizer, recognizer}));
}

TEST(ObjcStandIns, NotificationCentreDeliversToMatchingObservers) {
  id center = sendToClass<id>(objc_getClass("NSNotificationCenter"), "defaultCenter"_sel);
  ASSERT_EQ(center, sendToClass<id>(objc_getClass("NSNotificationCenter"), "defaultCenter"_sel));
  Strong keyboardShown = makeObject("NSObject");
  Strong lockChanged = makeObject("NSObject");
  Strong sender = makeObject("NSObject");
  Strong anyName = makeReceiver();
  Strong oneName = makeReceiver();
  Strong oneSender = makeReceiver();
  const SEL add = "addObserver:selector:name:object:"_sel;
  send<void>(center, add, anyName.get(), "noticed:"_sel, nullptr, nullptr);
  send<void>(center, add, oneName.get(), "noticed:"_sel, keyboardShown.get(), nullptr);
  send<void>(center, add, oneSender.get(), "noticed:"_sel, keyboardShown.get(), sender.get());

  send<void>(center, "postNotificationName:object:"_sel, keyboardShown.get(), nullptr);
  send<void>(center, "postNotificationName:object:"_sel, lockChanged.get(), sender.get());
  send<void>(center, "postNotificationName:object:"_sel, keyboardShown.get(), sender.get());

  EXPECT_EQ(receivedBy(anyName).names, (std::vector<id>{keyboardShown.get(), lockChanged.get(), keyboardShown.get()}));
  EXPECT_EQ(receivedBy(oneName).names, (std::vector<id>{keyboardShown.get(), keyboardShown.get()}));
  EXPECT_EQ(receivedBy(oneName).senders, (std::vector<id>{nullptr, sender.get()}));
  EXPECT_EQ(receivedBy(oneSender).names, std::vector<id>{keyboardShown.get()});

  send<void>(center, "removeObserver:"_sel, anyName.get());
  send<void>(center, "removeObserver:"_sel, oneName.get());
  send<void>(center, "removeObserver:"_sel, oneSender.get());
}

TEST(ObjcStandIns, RemovedObserverIsNotCalled) {
  id center = sendToClass<id>(objc_getClass("NSNotificationCenter"), "defaultCenter"_sel);
  Strong name = makeObject("NSObject");
  Strong otherName = makeObject("NSObject");
  Strong observer = makeReceiver();
  const SEL add = "addObserver:selector:name:object:"_sel;
  send<void>(center, add, observer.get(), "noticed:"_sel, name.get(), nullptr);
  send<void>(center, add, observer.get(), "noticed:"_sel, otherName.get(), nullptr);

  send<void>(center, "removeObserver:name:object:"_sel, observer.get(), name.get(), nullptr);
  send<void>(center, "postNotificationName:object:"_sel, name.get(), nullptr);
  send<void>(center, "postNotificationName:object:"_sel, otherName.get(), nullptr);
  EXPECT_EQ(receivedBy(observer).names, std::vector<id>{otherName.get()});

  send<void>(center, "removeObserver:"_sel, observer.get());
  send<void>(center, "postNotificationName:object:"_sel, otherName.get(), nullptr);
  EXPECT_EQ(receivedBy(observer).names.size(), 1u);
}

}  // namespace
}  // namespace tessel::objc
