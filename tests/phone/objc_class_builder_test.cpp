#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/implementation.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::objc {
namespace {

using namespace literals;

TEST(ObjcRuntime, RegisteredClassHasSuperclassAndAnswersSelectors) {
  Class uiView = objc_getClass("UIView");
  ClassBuilder builder("TestBadgeView", uiView);
  ASSERT_TRUE(builder);
  EXPECT_TRUE(builder.addMethod("badgeCount"_sel, [](id) { return 3L; }));
  EXPECT_TRUE(builder.addClassMethod("defaultBadgeCount"_sel, [](Class) { return 9L; }));
  Class cls = builder.registerClass();

  ASSERT_NE(cls, nullptr);
  EXPECT_EQ(objc_getClass("TestBadgeView"), cls);
  EXPECT_EQ(class_getSuperclass(cls), uiView);
  EXPECT_TRUE(class_respondsToSelector(cls, "badgeCount"_sel));
  EXPECT_TRUE(class_respondsToSelector(cls, "frame"_sel));
  EXPECT_FALSE(class_respondsToSelector(cls, "noSuchMethod"_sel));
  EXPECT_FALSE(class_respondsToSelector(uiView, "badgeCount"_sel));

  Strong badge = makeView("TestBadgeView", Rect{{0, 0}, {10, 10}});
  EXPECT_EQ(send<Class>(badge.get(), "class"_sel), cls);
  EXPECT_EQ(send<long>(badge.get(), "badgeCount"_sel), 3);
  EXPECT_EQ(sendToClass<long>(cls, "defaultBadgeCount"_sel), 9);
  EXPECT_EQ(send<Rect>(badge.get(), "frame"_sel), (Rect{{0, 0}, {10, 10}}));
  EXPECT_TRUE(send<BOOL>(badge.get(), "isKindOfClass:"_sel, uiView));
  EXPECT_TRUE(send<BOOL>(badge.get(), "isKindOfClass:"_sel, objc_getClass("NSObject")));
  EXPECT_FALSE(send<BOOL>(badge.get(), "isKindOfClass:"_sel, objc_getClass("SBIconView")));
  EXPECT_TRUE(send<BOOL>(badge.get(), "respondsToSelector:"_sel, "badgeCount"_sel));
}

TEST(ObjcRuntime, TakenClassNameBuildsNothing) {
  ClassBuilder builder("UIView", objc_getClass("NSObject"));
  EXPECT_FALSE(builder);
  EXPECT_FALSE(builder.addMethod("extra"_sel, [](id) { return 1L; }));
  EXPECT_EQ(builder.registerClass(), nullptr);
  EXPECT_FALSE(class_respondsToSelector(objc_getClass("UIView"), "extra"_sel));
}

TEST(ObjcRuntime, SecondMethodOfTheSameNameIsRefused) {
  ClassBuilder builder("TestTwiceDefined", objc_getClass("NSObject"));
  EXPECT_TRUE(builder.addMethod("value"_sel, [](id) { return 1L; }));
  EXPECT_FALSE(builder.addMethod("value"_sel, [](id) { return 2L; }));
  Strong object = Strong::adopt(sendToClass<id>(builder.registerClass(), "new"_sel));
  EXPECT_EQ(send<long>(object.get(), "value"_sel), 1);
}

TEST(ObjcRuntime, OverrideReachesTheInheritedImplementation) {
  // A view that never grows wider than 100 points, over UIView's own setFrame:.
  ClassBuilder builder("TestNarrowView", objc_getClass("UIView"));
  builder.addMethod("setFrame:"_sel, [](const Implementation<void(Rect)>& inherited, id self, Rect frame) {
    if (frame.size.width > 100) frame.size.width = 100;
    inherited(self, frame);
  });
  builder.registerClass();

  Strong view = makeObject("TestNarrowView");
  send<void>(view.get(), "setFrame:"_sel, Rect{{5, 6}, {250, 40}});
  EXPECT_EQ(send<Rect>(view.get(), "frame"_sel), (Rect{{5, 6}, {100, 40}}));
}

TEST(ObjcRuntime, SuperSendStartsAtTheSuperclass) {
  ClassBuilder builder("TestTaggedView", objc_getClass("UIView"));
  builder.addMethod("tag"_sel, [](id) { return 42L; });
  Class cls = builder.registerClass();

  Strong view = makeObject("TestTaggedView");
  send<void>(view.get(), "setTag:"_sel, 7L);
  EXPECT_EQ(send<long>(view.get(), "tag"_sel), 42);
  EXPECT_EQ(sendSuper<long>(view.get(), class_getSuperclass(cls), "tag"_sel), 7);
}

TEST(ObjcRuntime, InstanceVariablesAreSeparatePerInstance) {
  ClassBuilder builder("TestCounter", objc_getClass("NSObject"));
  ASSERT_TRUE(builder.addInstanceVariable<long>("_count"));
  ASSERT_TRUE(builder.addInstanceVariable<Rect>("_area"));
  builder.addMethod("increment"_sel, [](id self) {
    static const InstanceVariable<long> count(objc_getClass("TestCounter"), "_count");
    return ++count.of(self);
  });
  Class cls = builder.registerClass();
  const InstanceVariable<Rect> area(cls, "_area");
  ASSERT_TRUE(area);
  EXPECT_FALSE((InstanceVariable<long>(cls, "_missing")));

  Strong first = makeObject("TestCounter");
  Strong second = makeObject("TestCounter");
  EXPECT_EQ(area.of(first.get()), Rect{});  // a new object's variables start at zero
  area.of(first.get()) = Rect{{1, 1}, {2, 2}};
  send<long>(first.get(), "increment"_sel);
  send<long>(first.get(), "increment"_sel);
  EXPECT_EQ(send<long>(first.get(), "increment"_sel), 3);
  EXPECT_EQ(send<long>(second.get(), "increment"_sel), 1);
  EXPECT_EQ(area.of(first.get()), (Rect{{1, 1}, {2, 2}}));
  EXPECT_EQ(area.of(second.get()), Rect{});
}

TEST(ObjcRuntime, RunningOutOfMethodSlotsIsReportedAtRegistration) {
  // No other test uses this signature, so all of its slots are free here.
  ClassBuilder builder("TestManyMethods", objc_getClass("NSObject"));
  for (std::size_t i = 0; i < kMethodsPerSignature; ++i) {
    const std::string name = "method" + std::to_string(i) + ":";
    ASSERT_TRUE(builder.addMethod(sel_registerName(name.c_str()),
                                  [i](id, short x) { return static_cast<short>(x + static_cast<short>(i)); }));
  }
  EXPECT_THROW(builder.addMethod("oneTooMany:"_sel, [](id, short x) { return x; }), std::length_error);

  Strong object = Strong::adopt(sendToClass<id>(builder.registerClass(), "new"_sel));
  EXPECT_EQ(send<short>(object.get(), "method0:"_sel, short{100}), 100);
  const std::size_t last = kMethodsPerSignature - 1;
  const std::string lastName = "method" + std::to_string(last) + ":";
  EXPECT_EQ(send<short>(object.get(), sel_registerName(lastName.c_str()), short{100}), 100 + static_cast<short>(last));
}

}  // namespace
}  // namespace tessel::objc
