#include <gtest/gtest.h>

#include <any>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "host/hooked_methods.h"
#include "phone/binding/bridge.h"
#include "phone/binding/phone_runtime.h"
#include "phone/objc/autorelease_pool.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using objc::Strong;

std::vector<std::string>& calls() {
  static std::vector<std::string> made;
  return made;
}

// What the runtime's replacement hands the library for a hooked method: a
// host::Runtime whose replace goes through replaceWith with the installer given.
class HookingRuntime : public host::Runtime {
 public:
  explicit HookingRuntime(MessageHook hook) : hook_(hook) {}
  std::any replace(const host::Ref<host::Class>& cls, const host::MethodName& method, std::any replacement) override {
    return replaceWith(hook_, reinterpret_cast<Class>(objectOf(cls)), method, std::move(replacement));
  }

 private:
  MessageHook hook_;
};

// The loader's installer as the phone has it: the class's own method gets
// the new implementation and the old one is handed back.
struct LoaderCall {
  Class cls;
  SEL selector;
};
std::vector<LoaderCall>& loaderCalls() {
  static std::vector<LoaderCall> made;
  return made;
}
void loaderHook(Class cls, SEL selector, IMP replacement, IMP* previous) {
  loaderCalls().push_back({cls, selector});
  *previous = method_setImplementation(class_getInstanceMethod(cls, selector), replacement);
}

// A view class with its own layout, which writes down that it ran.
Class layoutRecordingClass(const char* name) {
  objc::ClassBuilder builder(name, objc_getClass("UIView"));
  builder.addMethod("layoutSubviews"_sel, [](id) { calls().push_back("own layout"); });
  return builder.registerClass();
}

TEST(PhoneBinding, LoaderInstallerGetsTheTrampolineAndItsPreviousIsCalled) {
  Class cls = layoutRecordingClass("TestLoaderHookedView");
  HookingRuntime runtime(loaderHook);
  loaderCalls().clear();
  calls().clear();
  host::replaceMethod(runtime, referenceToClass(cls), host::hooked::iconViewLayoutSubviews, host::PreviousRuns::last,
                      [](const host::Ref<host::IconView>& self) {
                        calls().push_back(self ? "library's work" : "library's work without a view");
                      });
  ASSERT_EQ(loaderCalls().size(), 1u);
  EXPECT_EQ(loaderCalls()[0].cls, cls);
  EXPECT_EQ(loaderCalls()[0].selector, "layoutSubviews"_sel);

  Strong view = objc::makeObject("TestLoaderHookedView");
  objc::send<void>(view.get(), "layoutSubviews"_sel);
  EXPECT_EQ(calls(), (std::vector<std::string>{"library's work", "own layout"}));
}

// The answer of an initialiser sent inside an autorelease pool, as the caller
// owns it once the pool is gone; nothing if it did not outlive the pool.
template <class Send>
Strong ownedAnswerOf(Send sendInitialiser) {
  id answer = nullptr;
  objc::Weak answered;
  {
    objc::AutoreleasePool pool;
    answer = sendInitialiser();
    answered = objc::Weak(answer);
  }
  Strong alive = answered.lock();
  return alive ? Strong::adopt(answer) : Strong();
}

// `initWithNibName:bundle:` as a class may have it: the object it answers is
// not the one it was sent to, which it lets go.
Class substitutingInitialiserClass(const char* name) {
  objc::ClassBuilder builder(name, objc_getClass("NSObject"));
  builder.addMethod("initWithNibName:bundle:"_sel, [](id self, id, id) -> id {
    calls().push_back("previous");
    id substitute = objc::send<id>(objc::sendToClass<id>(object_getClass(self), "alloc"_sel), "init"_sel);
    objc_release(self);
    return substitute;
  });
  return builder.registerClass();
}

TEST(PhoneBinding, FirstRunsReplacementCallsThePreviousFirstAndHandsItsAnswerBackUnchanged) {
  Class cls = substitutingInitialiserClass("TestSubstitutingController");
  HookingRuntime runtime(nullptr);
  calls().clear();
  id seenByWork = nullptr;
  host::replaceMethod(runtime, referenceToClass(cls), host::hooked::bulletinViewControllerInitWithNibNameBundle,
                      host::PreviousRuns::first,
                      [&](const host::Ref<host::BulletinViewController>&, const host::String&,
                          const host::Ref<host::Object>&, const host::Ref<host::BulletinViewController>& made) {
                        calls().push_back("library's work");
                        seenByWork = objectOf(made);
                      });

  id allocated = objc::sendToClass<id>(cls, "alloc"_sel);
  objc::Weak receiver(allocated);
  Strong made = ownedAnswerOf(
      [&] { return objc::send<id>(allocated, "initWithNibName:bundle:"_sel, static_cast<id>(nullptr), nullptr); });

  EXPECT_EQ(calls(), (std::vector<std::string>{"previous", "library's work"}));
  ASSERT_NE(made.get(), nullptr);
  EXPECT_EQ(made.get(), seenByWork);
  EXPECT_FALSE(receiver.lock()) << "the receiver the initialiser let go is freed";
  EXPECT_EQ(objc::retainCountOf(made.get()), 1u) << "the answer is the caller's alone";
}

TEST(PhoneBinding, CountsAndCodesReachTheLibraryAsTheRuntimePassedThem) {
  objc::ClassBuilder builder("TestFolderWithCounts", objc_getClass("NSObject"));
  builder.addMethod("initWithMaxListCount:maxIconCountInLists:"_sel, [](id self, NSUInteger lists, NSUInteger icons) {
    calls().push_back(std::to_string(lists) + "/" + std::to_string(icons));
    return self;
  });
  Class cls = builder.registerClass();
  HookingRuntime runtime(nullptr);
  calls().clear();
  host::replaceMethod(
      runtime, referenceToClass(cls), host::hooked::folderInitWithMaxListCountMaxIconCountInLists,
      host::PreviousRuns::first,
      [](const host::Ref<host::Folder>&, std::uint64_t lists, std::uint64_t icons, const host::Ref<host::Folder>&) {
        calls().push_back("work " + std::to_string(lists) + "/" + std::to_string(icons));
      });

  Strong folder = ownedAnswerOf([&] {
    return objc::send<id>(objc::sendToClass<id>(cls, "alloc"_sel), "initWithMaxListCount:maxIconCountInLists:"_sel,
                          NSUInteger{15}, ~NSUInteger{0});
  });
  ASSERT_TRUE(folder) << "the answer is the caller's, not the pool's";
  EXPECT_EQ(calls(), (std::vector<std::string>{"15/18446744073709551615", "work 15/18446744073709551615"}));
  EXPECT_EQ(objc::retainCountOf(folder.get()), 1u);
}

TEST(PhoneBinding, MenuButtonAnswerReachesTheWorkAndTheHost) {
  objc::ClassBuilder builder("TestMenuController", objc_getClass("NSObject"));
  builder.addMethod("clickedMenuButton"_sel, [](id) -> BOOL { return true; });
  Class cls = builder.registerClass();
  HookingRuntime runtime(nullptr);
  std::vector<bool> seen;
  host::replaceMethod(runtime, referenceToClass(cls), host::hooked::uiControllerClickedMenuButton,
                      host::PreviousRuns::first,
                      [&](const host::Ref<host::Object>&, bool handled) { seen.push_back(handled); });

  Strong controller = objc::makeObject("TestMenuController");
  EXPECT_TRUE(objc::send<BOOL>(controller.get(), "clickedMenuButton"_sel));
  EXPECT_EQ(seen, std::vector<bool>{true});
}

TEST(PhoneBinding, EveryReplaceableMethodHasATrampolineAndNothingElseDoes) {
  // A class with none of the ten: each replacement adds its method.
  objc::ClassBuilder builder("TestEveryHookedMethod", objc_getClass("NSObject"));
  Class cls = builder.registerClass();
  HookingRuntime runtime(nullptr);
  std::apply(
      [&](const auto&... hook) {
        (host::replaceMethod(runtime, referenceToClass(cls), hook, host::PreviousRuns::first, [](auto&&...) {}), ...);
      },
      host::hooked::all);
  int installed = 0;
  std::apply(
      [&](const auto&... hook) {
        ((installed += class_respondsToSelector(cls, sel_registerName(std::string(hook.selector).c_str())) ? 1 : 0),
         ...);
      },
      host::hooked::all);
  EXPECT_EQ(installed, 10);

  using LayoutHook = std::remove_cvref_t<decltype(host::hooked::iconViewLayoutSubviews)>;
  std::any replacement = LayoutHook::Implementation([](const host::Ref<host::IconView>&) {});
  EXPECT_FALSE(replaceWith(nullptr, cls, host::MethodName{"SBIconView", "setNeedsLayout"}, replacement).has_value());
  EXPECT_FALSE(class_respondsToSelector(cls, "setNeedsLayout"_sel));
  EXPECT_FALSE(replaceWith(nullptr, nullptr, host::hooked::iconViewLayoutSubviews, replacement).has_value());
  // The right name with another method's replacement installs nothing either.
  EXPECT_FALSE(replaceWith(nullptr, cls, host::hooked::uiControllerHandleMenuDoubleTap, replacement).has_value());
}

TEST(PhoneBinding, PhoneRuntimeWithoutTheLoaderReplacesThroughTheRuntime) {
  Class cls = layoutRecordingClass("TestRuntimeHookedView");
  PhoneRuntime runtime;
  calls().clear();
  host::replaceMethod(runtime, referenceToClass(cls), host::hooked::iconViewLayoutSubviews, host::PreviousRuns::last,
                      [](const host::Ref<host::IconView>&) { calls().push_back("library's work"); });
  Strong view = objc::makeObject("TestRuntimeHookedView");
  objc::send<void>(view.get(), "layoutSubviews"_sel);
  EXPECT_EQ(calls(), (std::vector<std::string>{"library's work", "own layout"}));
}

}  // namespace
}  // namespace tessel::phone
