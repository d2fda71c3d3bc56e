#include <gtest/gtest.h>

#include <string>

#include "host/object.h"
#include "host/value.h"
#include "host/view.h"
#include "phone/binding/bridge.h"
#include "phone/binding/phone_runtime.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/autorelease_pool.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using objc::makeObject;
using objc::retainCountOf;

TEST(PhoneBinding, ReferencesToOneObjectAreEqualThroughAnyInterface) {
  objc::Strong view = makeObject("UIView");
  objc::Strong other = makeObject("UIView");

  auto asView = referenceTo<host::View>(view.get());
  auto asLayer = referenceTo<host::Layer>(view.get());
  ASSERT_TRUE(asView);
  ASSERT_TRUE(asLayer);
  EXPECT_NE(static_cast<const void*>(asView.get()), static_cast<const void*>(asLayer.get()));
  EXPECT_TRUE(asView == asLayer);
  EXPECT_FALSE(asView == referenceTo<host::View>(other.get()));
  EXPECT_EQ(objectOf(asLayer), view.get());
  EXPECT_EQ(host::identityOf(asView), static_cast<const void*>(view.get()));
}

TEST(PhoneBinding, ReferenceHoldsOneRetainForItsLife) {
  objc::Strong view = makeObject("UIView");
  {
    auto first = referenceTo(view.get());
    auto second = referenceTo<host::View>(view.get());
    EXPECT_EQ(retainCountOf(view.get()), 3u);
  }
  EXPECT_EQ(retainCountOf(view.get()), 1u);

  // An object the caller owns is taken over, not retained again.
  objc::Weak freed;
  {
    auto owned = referenceTo(objc::makeObject("UIView"));
    freed = objc::Weak(objectOf(owned));
    EXPECT_EQ(retainCountOf(objectOf(owned)), 1u);
  }
  EXPECT_FALSE(freed.lock());
}

TEST(PhoneBinding, WeakReferenceReadsNothingExactlyWhenTheRuntimeFreesTheObject) {
  objc::Strong window = makeObject("UIView");
  host::Weak<host::View> weak;
  objc::Weak runtimeWeak;
  {
    objc::Strong view = makeObject("UIView");
    runtimeWeak = objc::Weak(view);
    auto reference = referenceTo<host::View>(view.get());
    weak = host::Weak<host::View>(reference);
    objc::send(window.get(), "addSubview:"_sel, view.get());
  }
  // No host reference is left, but the superview keeps the view alive.
  ASSERT_TRUE(runtimeWeak.lock());
  auto read = weak.lock();
  ASSERT_TRUE(read);
  EXPECT_EQ(objectOf(read), runtimeWeak.lock().get());
  read = nullptr;

  objc::send(runtimeWeak.lock().get(), "removeFromSuperview"_sel);
  EXPECT_FALSE(runtimeWeak.lock());
  EXPECT_FALSE(weak.lock());
  EXPECT_FALSE(weak);
}

TEST(PhoneBinding, MessageToNothingYieldsZeroThroughTheHostInterfaces) {
  objc::AutoreleasePool pool;
  EXPECT_FALSE(referenceTo(static_cast<id>(nullptr)));
  EXPECT_EQ(objectOf(host::Ref<host::View>()), nullptr);

  objc::Strong lone = makeObject("UIView");
  objc::send(lone.get(), "setFrame:"_sel, objc::Rect{{3, 4}, {50, 60}});
  auto view = referenceTo<host::View>(lone.get());
  auto superview = view->superview();
  EXPECT_FALSE(superview);
  EXPECT_EQ(superview->frame(), host::Rect{});
  EXPECT_EQ(view->superview()->convertRectToView({1, 2, 3, 4}, view), host::Rect{});
  EXPECT_TRUE(view->superview()->subviews().empty());
  EXPECT_EQ(view->frame(), (host::Rect{3, 4, 50, 60}));
}

TEST(PhoneBinding, KindQuestionsAreAskedOfTheRuntime) {
  PhoneRuntime runtime;
  objc::Strong iconView = makeObject("SBIconView");
  auto reference = referenceTo(iconView.get());

  EXPECT_TRUE(reference->isKindOfClass(runtime.getClass("UIView")));
  EXPECT_TRUE(reference->isKindOfClass(runtime.getClass("SBIconView")));
  EXPECT_FALSE(reference->isKindOfClass(runtime.getClass("UIGestureRecognizer")));
  EXPECT_FALSE(reference->isKindOfClass(runtime.getClass("NoSuchClass")));
  EXPECT_TRUE(reference->respondsToSelector("layoutSubviews"));
  EXPECT_FALSE(reference->respondsToSelector("layoutSubviewsSoon"));

  EXPECT_TRUE(reference->objectClass() == runtime.getClass("SBIconView"));
  EXPECT_FALSE(reference->objectClass() == runtime.getClass("UIView"));
  EXPECT_EQ(reference->objectClass()->name(), "SBIconView");
}

TEST(PhoneBinding, ClassesAnswerTheirNamesAncestryAndInstances) {
  PhoneRuntime runtime;
  auto iconView = runtime.getClass("SBIconView");
  ASSERT_TRUE(iconView);
  EXPECT_FALSE(runtime.getClass("NoSuchClass"));
  EXPECT_TRUE(iconView == referenceToClass(objc_getClass("SBIconView")));
  EXPECT_EQ(objectOf(iconView), objc::asObject(objc_getClass("SBIconView")));

  EXPECT_EQ(iconView->superclass()->name(), "UIView");
  EXPECT_TRUE(iconView->isSubclassOfClass(runtime.getClass("UIView")));
  EXPECT_TRUE(iconView->isSubclassOfClass(iconView));
  EXPECT_FALSE(runtime.getClass("UIView")->isSubclassOfClass(iconView));

  // `alloc` answers an object the reference owns: initialising it and
  // dropping both references frees it.
  objc::Weak made;
  {
    auto allocated = iconView->alloc();
    ASSERT_TRUE(allocated);
    EXPECT_EQ(retainCountOf(objectOf(allocated)), 1u);
    made = objc::Weak(objectOf(allocated));
    EXPECT_TRUE(allocated->isKindOfClass(iconView));
  }
  EXPECT_FALSE(made.lock());

  // A class is never freed: its weak reference always reads it.
  host::Weak<host::Class> weakClass(iconView);
  iconView = nullptr;
  EXPECT_EQ(weakClass.lock()->name(), "SBIconView");
}

TEST(PhoneBinding, StringsRoundTripAsPlatformStrings) {
  for (const std::string& text :
       {std::string("UIKeyboardWillShowNotification"), std::string("Caf\xC3\xA9 \xE2\x9C\x93"), std::string()}) {
    objc::Strong string = makeString(text);
    ASSERT_TRUE(string) << text;
    EXPECT_EQ(retainCountOf(string.get()), 1u);
    EXPECT_EQ(stringOf(string.get()), host::String(text));
  }
  EXPECT_FALSE(makeString(std::nullopt));
  EXPECT_EQ(stringOf(nullptr), std::nullopt);
}

TEST(PhoneBinding, IndexPathsRoundTripAsPlatformIndexPaths) {
  objc::AutoreleasePool pool;
  const auto rowInSection = host::IndexPath::forRowInSection(/*row*/ 7, /*section*/ 2);
  objc::Strong path = makeIndexPath(rowInSection);
  ASSERT_TRUE(path);
  EXPECT_EQ(objc::send<unsigned long>(path.get(), "indexAtPosition:"_sel, 0ul), 2u);
  EXPECT_EQ(objc::send<unsigned long>(path.get(), "indexAtPosition:"_sel, 1ul), 7u);
  EXPECT_EQ(indexPathOf(path.get()), rowInSection);

  const host::IndexPath deep{{1, 0, 4}};
  EXPECT_EQ(indexPathOf(makeIndexPath(deep).get()), deep);

  EXPECT_FALSE(makeIndexPath({}));
  EXPECT_TRUE(indexPathOf(nullptr).indexes.empty());
}

TEST(PhoneBinding, ValueReadingsOnlyOfObjectsThatHaveThem) {
  objc::AutoreleasePool pool;
  auto number = referenceTo<host::Value>(
      objc::sendToClass<id>(objc_getClass("NSNumber"), "numberWithInt:"_sel, static_cast<int>(-3)));
  EXPECT_EQ(number->intValue(), -3);
  EXPECT_EQ(number->boolValue(), true);
  EXPECT_EQ(number->CGRectValue(), std::nullopt);

  objc::Strong array = objc::gnu::makeArray({});
  auto notNumber = referenceTo<host::Value>(array.get());
  EXPECT_EQ(notNumber->intValue(), std::nullopt);
  EXPECT_EQ(notNumber->boolValue(), std::nullopt);
}

}  // namespace
}  // namespace tessel::phone
