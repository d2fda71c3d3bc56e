#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/implementation.h"
#include "phone/objc/message.h"
#include "phone/objc/methods.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::objc {
namespace {

using namespace literals;

// A class with its own -value and +defaultValue, and a subclass that only inherits them.
Class makeParentAndChild(const char* parentName, const char* childName) {
  ClassBuilder parent(parentName, objc_getClass("NSObject"));
  parent.addMethod("value"_sel, [](id) { return 3L; });
  parent.addClassMethod("defaultValue"_sel, [](Class) { return 30L; });
  Class parentClass = parent.registerClass();
  ClassBuilder child(childName, parentClass);
  child.registerClass();
  return parentClass;
}

TEST(ObjcRuntime, ReplacedMethodCallsPreviousImplementation) {
  ClassBuilder builder("TestLayoutRecorder", objc_getClass("UIView"));
  static std::vector<std::string> calls;
  calls.clear();
  builder.addMethod("layoutSubviews"_sel, [](id) { calls.push_back("original"); });
  Class cls = builder.registerClass();

  Implementation<void()> previous =
      replaceMethod(cls, "layoutSubviews"_sel, [](const Implementation<void()>& original, id self) {
        calls.push_back("before");
        original(self);
        calls.push_back("after");
      });
  ASSERT_TRUE(previous);
  EXPECT_NE(previous.imp(), nullptr);

  Strong view = makeObject("TestLayoutRecorder");
  send<void>(view.get(), "layoutSubviews"_sel);
  EXPECT_EQ(calls, (std::vector<std::string>{"before", "original", "after"}));

  calls.clear();
  previous(view.get());
  EXPECT_EQ(calls, std::vector<std::string>{"original"});
}

TEST(ObjcRuntime, ReplacementCanChangeArgumentsAndResult) {
  ClassBuilder builder("TestScaledView", objc_getClass("UIView"));
  Class cls = builder.registerClass();
  // setFrame: and frame are UIView's: the replacement sits on the subclass only.
  replaceMethod(cls, "setFrame:"_sel, [](const Implementation<void(Rect)>& original, id self, Rect frame) {
    frame.size = {frame.size.width * 2, frame.size.height * 2};
    original(self, frame);
  });
  replaceMethod(cls, "frame"_sel, [](const Implementation<Rect()>& original, id self) {
    Rect frame = original(self);
    frame.origin.x += 1;
    return frame;
  });

  Strong scaled = makeObject("TestScaledView");
  Strong plain = makeObject("UIView");
  send<void>(scaled.get(), "setFrame:"_sel, Rect{{0, 0}, {10, 20}});
  send<void>(plain.get(), "setFrame:"_sel, Rect{{0, 0}, {10, 20}});
  EXPECT_EQ(send<Rect>(scaled.get(), "frame"_sel), (Rect{{1, 0}, {20, 40}}));
  EXPECT_EQ(send<Rect>(plain.get(), "frame"_sel), (Rect{{0, 0}, {10, 20}}));
}

TEST(ObjcRuntime, ReplacingAnInheritedMethodReachesTheSuperclassAtCallTime) {
  Class parent = makeParentAndChild("TestParentOfReplaced", "TestChildOfReplaced");
  Class child = objc_getClass("TestChildOfReplaced");
  Implementation<long()> previous = replaceMethod(
      child, "value"_sel, [](const Implementation<long()>& inherited, id self) { return inherited(self) + 100; });
  EXPECT_TRUE(previous);

  Strong childObject = Strong::adopt(sendToClass<id>(child, "new"_sel));
  Strong parentObject = Strong::adopt(sendToClass<id>(parent, "new"_sel));
  EXPECT_EQ(send<long>(childObject.get(), "value"_sel), 103);
  EXPECT_EQ(send<long>(parentObject.get(), "value"_sel), 3);

  // The superclass is asked when the call happens, not when the hook went in.
  replaceMethod(parent, "value"_sel, [](id) { return 5L; });
  EXPECT_EQ(send<long>(childObject.get(), "value"_sel), 105);
}

TEST(ObjcRuntime, ReplacedClassMethodCallsPreviousImplementation) {
  Class parent = makeParentAndChild("TestParentOfClassHook", "TestChildOfClassHook");
  Class child = objc_getClass("TestChildOfClassHook");
  Implementation<long()> ownPrevious = replaceClassMethod(
      parent, "defaultValue"_sel,
      [](const Implementation<long()>& original, Class self) { return original(asObject(self)) + 1; });
  Implementation<long()> inheritedPrevious = replaceClassMethod(
      child, "defaultValue"_sel,
      [](const Implementation<long()>& inherited, Class self) { return inherited(asObject(self)) * 2; });

  EXPECT_NE(ownPrevious.imp(), nullptr);
  EXPECT_TRUE(inheritedPrevious);
  EXPECT_EQ(sendToClass<long>(parent, "defaultValue"_sel), 31);
  EXPECT_EQ(sendToClass<long>(child, "defaultValue"_sel), 62);
}

TEST(ObjcRuntime, OverrideAddedAfterReplacingTheSuperclassMethodIsUsed) {
  // Neither class has been sent a message yet when the hooks go in.
  ClassBuilder parentBuilder("TestHookedParent", objc_getClass("NSObject"));
  parentBuilder.addMethod("ownValue"_sel, [](id) { return 1L; });
  Class parent = parentBuilder.registerClass();
  ClassBuilder childBuilder("TestHookedChild", parent);
  Class child = childBuilder.registerClass();

  replaceMethod(parent, "ownValue"_sel,
                [](const Implementation<long()>& original, id self) { return original(self) + 10; });
  replaceMethod(child, "ownValue"_sel,
                [](const Implementation<long()>& inherited, id self) { return inherited(self) + 100; });

  Strong childObject = Strong::adopt(sendToClass<id>(child, "new"_sel));
  Strong parentObject = Strong::adopt(sendToClass<id>(parent, "new"_sel));
  EXPECT_EQ(send<long>(childObject.get(), "ownValue"_sel), 111);
  EXPECT_EQ(send<long>(parentObject.get(), "ownValue"_sel), 11);
}

TEST(ObjcRuntime, ReplacingAMissingMethodGivesAnEmptyPrevious) {
  ClassBuilder builder("TestWithoutBadge", objc_getClass("NSObject"));
  Class cls = builder.registerClass();
  Implementation<long()> previous =
      replaceMethod(cls, "badge"_sel, [](const Implementation<long()>& original, id self) {
        return original(self) + 4;  // an empty previous behaves as a message to nil
      });

  EXPECT_FALSE(previous);
  Strong object = Strong::adopt(sendToClass<id>(cls, "new"_sel));
  EXPECT_EQ(previous(object.get()), 0);
  EXPECT_EQ(send<long>(object.get(), "badge"_sel), 4);
}

TEST(ObjcRuntime, ExceptionInMethodDoesNotEscape) {
  static int entered = 0;
  entered = 0;
  ClassBuilder builder("TestThrower", objc_getClass("NSObject"));
  builder.addMethod("failWithError"_sel, [](id) -> long {
    ++entered;
    throw std::runtime_error("failed");
  });
  builder.addMethod("failWithAnything"_sel, [](id) -> Rect {
    ++entered;
    throw 7;
  });
  builder.addMethod("failQuietly"_sel, [](id) {
    ++entered;
    throw std::logic_error("failed");
  });
  Class cls = builder.registerClass();
  Strong thrower = Strong::adopt(sendToClass<id>(cls, "new"_sel));

  long number = -1;
  Rect rect{{1, 1}, {1, 1}};
  EXPECT_NO_THROW(number = send<long>(thrower.get(), "failWithError"_sel));
  EXPECT_NO_THROW(rect = send<Rect>(thrower.get(), "failWithAnything"_sel));
  EXPECT_NO_THROW(send<void>(thrower.get(), "failQuietly"_sel));
  EXPECT_EQ(entered, 3);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(rect, Rect{});
}

}  // namespace
}  // namespace tessel::objc
