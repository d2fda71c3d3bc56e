// How each replacement wraps the host's own implementation, seen in the
// order of what happens: the host's call, the library's closing of the panel.

#include <algorithm>
#include <any>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hooks/library.h"
#include "host/hooked_methods.h"

namespace tessel {
namespace {

using namespace host;

std::vector<std::string> events;

// A runtime that hands back the implementations a test gives it as the
// host's own, and keeps what the library installs.
class RecordingRuntime : public Runtime {
 public:
  std::any replace(const Ref<Class>&, const MethodName& method, std::any replacement) override {
    installOrder.push_back(std::string(method.className) + " " + std::string(method.selector));
    installed[std::string(method.selector)] = std::move(replacement);
    return hostHad[std::string(method.selector)];
  }
  template <class Signature>
  void give(const MethodHook<Signature>& hook, typename MethodHook<Signature>::Implementation implementation) {
    hostHad[std::string(hook.selector)] = std::move(implementation);
  }
  template <class Signature>
  typename MethodHook<Signature>::Implementation replacement(const MethodHook<Signature>& hook) {
    return std::any_cast<typename MethodHook<Signature>::Implementation>(installed.at(std::string(hook.selector)));
  }

  std::map<std::string, std::any> hostHad;
  std::map<std::string, std::any> installed;
  std::vector<std::string> installOrder;
};

// Closing the panel begins with removing the keyboard observers.
class RecordingHost : public Host {
 public:
  class RecordingCenter : public NotificationCenter {
   public:
    void removeObserverNameObject(const Ref<Object>&, const String&, const Ref<Object>&) override {
      events.push_back("close");
    }
  };
  Ref<Runtime> runtime() override { return Ref<Runtime>(std::shared_ptr<Runtime>(runtime_)); }
  Ref<NotificationCenter> defaultCenter() override { return make<RecordingCenter>(); }
  RecordingRuntime& recording() { return *runtime_; }

 private:
  std::shared_ptr<RecordingRuntime> runtime_ = std::make_shared<RecordingRuntime>();
};

class IconViewAskedForItsIcon : public IconView {
 public:
  Ref<Icon> icon() const override {
    events.push_back("icon");
    return {};
  }
};

// The events of one call, repeats counted once.
template <class Call>
std::vector<std::string> eventsOf(Call call) {
  events.clear();
  call();
  events.erase(std::unique(events.begin(), events.end()), events.end());
  return events;
}

class Replacements : public ::testing::Test {
 protected:
  // The host's implementations are given before the library loads and installs.
  void load() { library_ = Library::load(host_); }
  RecordingRuntime& runtime() { return host_.recording(); }

  RecordingHost host_;
  std::unique_ptr<Library> library_;
  bool handled_ = false;
  std::function<void()> record_ = [] { events.push_back("previous"); };
};

TEST_F(Replacements, AreInstalledOnceEachInTheirOrder) {
  load();
  EXPECT_EQ(
      runtime().installOrder,
      (std::vector<std::string>{
          "SBIconView layoutSubviews", "SBBulletinViewController initWithNibName:bundle:",
          "SBFolder initWithMaxListCount:maxIconCountInLists:", "SBLockScreenManager unlockUIFromSource:withOptions:",
          "SBApplicationIcon launchFromLocation:", "SBAppSwitcherController switcherScroller:itemTapped:",
          "SBAppSwitcherController launchAppWithIdentifier:url:actions:", "SBUIController clickedMenuButton",
          "SBUIController handleMenuDoubleTap", "SBUIController _deviceLockStateChanged:"}));
}

TEST_F(Replacements, CallTheHostFirstAndThenCloseThePanel) {
  auto recorded = [&](auto&&...) { record_(); };
  runtime().give(hooked::lockScreenManagerUnlockUIFromSourceWithOptions, recorded);
  runtime().give(hooked::applicationIconLaunchFromLocation, recorded);
  runtime().give(hooked::appSwitcherSwitcherScrollerItemTapped, recorded);
  runtime().give(hooked::appSwitcherLaunchAppWithIdentifierUrlActions, recorded);
  runtime().give(hooked::uiControllerDeviceLockStateChanged, recorded);
  load();
  const std::vector<std::string> previousThenClose{"previous", "close"};
  auto& r = runtime();
  EXPECT_EQ(eventsOf([&] { r.replacement(hooked::lockScreenManagerUnlockUIFromSourceWithOptions)({}, 0, {}); }),
            previousThenClose);
  EXPECT_EQ(eventsOf([&] { r.replacement(hooked::applicationIconLaunchFromLocation)({}, 3); }), previousThenClose);
  EXPECT_EQ(eventsOf([&] { r.replacement(hooked::appSwitcherSwitcherScrollerItemTapped)({}, {}, {}); }),
            previousThenClose);
  EXPECT_EQ(eventsOf([&] { r.replacement(hooked::appSwitcherLaunchAppWithIdentifierUrlActions)({}, "x", {}, {}); }),
            previousThenClose);
  EXPECT_EQ(eventsOf([&] { r.replacement(hooked::uiControllerDeviceLockStateChanged)({}, {}); }), previousThenClose);
}

TEST_F(Replacements, MenuButtonsHandBackTheHostsAnswerAndCloseOnlyWhenItHandledThePress) {
  auto press = [&](auto&&...) {
    events.push_back("previous");
    return handled_;
  };
  runtime().give(hooked::uiControllerClickedMenuButton, press);
  runtime().give(hooked::uiControllerHandleMenuDoubleTap, press);
  load();
  for (auto* hook : {&hooked::uiControllerClickedMenuButton, &hooked::uiControllerHandleMenuDoubleTap}) {
    auto menu = runtime().replacement(*hook);
    for (bool hostHandled : {false, true}) {
      handled_ = hostHandled;
      bool answer = !hostHandled;
      std::vector<std::string> expected{"previous"};
      if (hostHandled) expected.push_back("close");
      EXPECT_EQ(eventsOf([&] { answer = menu({}); }), expected);
      EXPECT_EQ(answer, hostHandled);
    }
  }
}

TEST_F(Replacements, IconLayoutAsksAboutTheIconBeforeTheHostLaysOut) {
  runtime().give(hooked::iconViewLayoutSubviews, [&](auto&&...) { record_(); });
  load();
  auto layout = runtime().replacement(hooked::iconViewLayoutSubviews);
  EXPECT_EQ(eventsOf([&] { layout(make<IconViewAskedForItsIcon>()); }), (std::vector<std::string>{"icon", "previous"}));
}

TEST_F(Replacements, OnlyTheFirstNotificationListControllerThatHandlesNoWidgetsIsKept) {
  class ListController : public BulletinViewController {
   public:
    explicit ListController(bool widgets) : widgets_(widgets) {}
    bool isKindOfClass(const Ref<Class>&) const override { return widgets_; }

   private:
    bool widgets_;
  };
  runtime().give(hooked::bulletinViewControllerInitWithNibNameBundle,
                 [](const Ref<BulletinViewController>& self, auto&&...) { return self; });
  load();
  auto init = runtime().replacement(hooked::bulletinViewControllerInitWithNibNameBundle);
  Ref<BulletinViewController> widgets = make<ListController>(true), first = make<ListController>(false),
                              second = make<ListController>(false);
  for (const auto& made : {widgets, first, second}) EXPECT_TRUE(init(made, {}, {}) == made);
  EXPECT_TRUE(library_->shared().bulletinViewController.lock() == first);
}

TEST_F(Replacements, AHostImplementationThatThrowsStopsAtTheReplacement) {
  auto fail = [](auto&&...) -> bool { throw std::runtime_error("host failure"); };
  runtime().give(hooked::applicationIconLaunchFromLocation, fail);
  runtime().give(hooked::uiControllerClickedMenuButton, fail);
  load();
  EXPECT_EQ(eventsOf([&] { runtime().replacement(hooked::applicationIconLaunchFromLocation)({}, 0); }),
            std::vector<std::string>{"close"});
  EXPECT_FALSE(runtime().replacement(hooked::uiControllerClickedMenuButton)({}));
}

TEST_F(Replacements, WithoutAHostImplementationTheWorkStillRuns) {
  load();
  EXPECT_EQ(eventsOf([&] { runtime().replacement(hooked::uiControllerDeviceLockStateChanged)({}, {}); }),
            std::vector<std::string>{"close"});
  EXPECT_FALSE(runtime().replacement(hooked::uiControllerHandleMenuDoubleTap)({}));
}

}  // namespace
}  // namespace tessel
