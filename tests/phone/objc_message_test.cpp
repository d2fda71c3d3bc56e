#include <gtest/gtest.h>

#include <cstring>

#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::objc {
namespace {

using namespace literals;

TEST(ObjcRuntime, MessageToNilYieldsZero) {
  EXPECT_EQ(send<int>(nullptr, "count"_sel), 0);
  EXPECT_EQ(send<long>(nullptr, "tag"_sel), 0);
  EXPECT_EQ(send<unsigned long long>(nullptr, "hash"_sel), 0u);
  EXPECT_EQ(send<double>(nullptr, "alpha"_sel), 0.0);
  EXPECT_EQ(send<BOOL>(nullptr, "isHidden"_sel), BOOL{0});
  EXPECT_EQ(send<Rect>(nullptr, "frame"_sel), Rect{});
  EXPECT_EQ(send<id>(nullptr, "superview"_sel), nullptr);
  EXPECT_EQ(sendToClass<id>(nullptr, "alloc"_sel), nullptr);
  EXPECT_EQ(sendSuper<Rect>(nullptr, objc_getClass("NSObject"), "frame"_sel), Rect{});
  send<void>(nullptr, "setFrame:"_sel, Rect{{1, 2}, {3, 4}});
}

TEST(ObjcRuntime, StructReturnOfFourDoubles) {
  const Rect frame{{1.5, -2.25}, {320.125, 568.75}};
  Strong view = makeView("UIView", frame);
  EXPECT_EQ(send<Rect>(view.get(), "frame"_sel), frame);
  EXPECT_EQ(send<Rect>(view.get(), "bounds"_sel), (Rect{{0, 0}, {320.125, 568.75}}));

  const Rect moved{{10, 20}, {30, 40}};
  send<void>(view.get(), "setFrame:"_sel, moved);
  EXPECT_EQ(send<Rect>(view.get(), "frame"_sel), moved);
}

TEST(ObjcRuntime, ArgumentsOfEveryKindArriveInOrder) {
  ClassBuilder builder("TestArgumentMixer", objc_getClass("NSObject"));
  builder.addMethod("mixLong:double:object:selector:flag:rect:"_sel, [](id self, long number, double fraction,
                                                                        id object, SEL selector, BOOL flag, Rect rect) {
    const bool allThere =
        number == -7 && fraction == 0.5 && object == self && std::strcmp(sel_getName(selector), "frame") == 0 && flag;
    return allThere ? Rect{{rect.size.width, rect.size.height}, {rect.origin.x, rect.origin.y}} : Rect{};
  });
  Class cls = builder.registerClass();
  Strong mixer = Strong::adopt(sendToClass<id>(cls, "new"_sel));

  const Rect swapped = send<Rect>(mixer.get(), "mixLong:double:object:selector:flag:rect:"_sel, -7L, 0.5, mixer.get(),
                                  "frame"_sel, BOOL{1}, Rect{{1, 2}, {3, 4}});
  EXPECT_EQ(swapped, (Rect{{3, 4}, {1, 2}}));
}

TEST(ObjcRuntime, SelectorsAreRegisteredUnderTheirNames) {
  EXPECT_EQ(selector<"addObserver:selector:name:object:">(), sel_registerName("addObserver:selector:name:object:"));
  EXPECT_EQ("frame"_sel, sel_registerName("frame"));
  EXPECT_STREQ(sel_getName("setFrame:"_sel), "setFrame:");
  EXPECT_NE("frame"_sel, "bounds"_sel);
}

}  // namespace
}  // namespace tessel::objc
