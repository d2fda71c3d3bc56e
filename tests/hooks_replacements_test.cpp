// How each replacement wraps the host's own implementation, seen in the
// order of what happens: the host's call, the library's closing of the panel.

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hooks/library.h"
#include "hooks/replacements.h"

namespace tessel::hooks {
namespace {

using namespace host;

std::vector<std::string> events;

// Closing the panel begins with removing the keyboard observers.
class RecordingHost : public Host {
 public:
  class RecordingCenter : public NotificationCenter {
   public:
    void removeObserverNameObject(const ActionTarget*, const String&, const Ref<Object>&) override {
      events.push_back("close");
    }
  };
  Ref<NotificationCenter> defaultCenter() override { return make<RecordingCenter>(); }
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
  RecordingHost host_;
  std::unique_ptr<Module> module_ = loadLibrary(host_);
  PreviousImplementations& hostHad = *module_->previous;
  bool handled_ = false;
  std::function<void()> record_ = [] { events.push_back("previous"); };
  std::function<bool()> press_ = [this] {
    events.push_back("previous");
    return handled_;
  };
};

TEST_F(Replacements, CallTheHostFirstAndThenCloseThePanel) {
  hostHad.unlockUI = decltype(hostHad.unlockUI)([&](auto&&...) { record_(); });
  hostHad.launchFromLocation = decltype(hostHad.launchFromLocation)([&](auto&&...) { record_(); });
  hostHad.switcherItemTapped = decltype(hostHad.switcherItemTapped)([&](auto&&...) { record_(); });
  hostHad.switcherLaunchApp = decltype(hostHad.switcherLaunchApp)([&](auto&&...) { record_(); });
  hostHad.deviceLockStateChanged = decltype(hostHad.deviceLockStateChanged)([&](auto&&...) { record_(); });
  const std::vector<std::string> previousThenClose{"previous", "close"};
  EXPECT_EQ(eventsOf([] { lockScreenManagerUnlockUIFromSourceWithOptions({}, 0, {}); }), previousThenClose);
  EXPECT_EQ(eventsOf([] { applicationIconLaunchFromLocation({}, 3); }), previousThenClose);
  EXPECT_EQ(eventsOf([] { appSwitcherSwitcherScrollerItemTapped({}, {}, {}); }), previousThenClose);
  EXPECT_EQ(eventsOf([] { appSwitcherLaunchAppWithIdentifierUrlActions({}, "x", {}, {}); }), previousThenClose);
  EXPECT_EQ(eventsOf([] { uiControllerDeviceLockStateChanged({}, {}); }), previousThenClose);
}

TEST_F(Replacements, MenuButtonsHandBackTheHostsAnswerAndCloseOnlyWhenItHandledThePress) {
  hostHad.clickedMenuButton = decltype(hostHad.clickedMenuButton)([&](auto&&...) { return press_(); });
  hostHad.handleMenuDoubleTap = decltype(hostHad.handleMenuDoubleTap)([&](auto&&...) { return press_(); });
  for (auto* menu : {&uiControllerClickedMenuButton, &uiControllerHandleMenuDoubleTap}) {
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
  hostHad.iconViewLayoutSubviews = decltype(hostHad.iconViewLayoutSubviews)([&](auto&&...) { record_(); });
  EXPECT_EQ(eventsOf([] { iconViewLayoutSubviews(make<IconViewAskedForItsIcon>()); }),
            (std::vector<std::string>{"icon", "previous"}));
}

TEST_F(Replacements, OnlyTheFirstNotificationListControllerThatHandlesNoWidgetsIsKept) {
  class ListController : public BulletinViewController {
   public:
    explicit ListController(bool widgets) : widgets_(widgets) {}
    bool isKindOfClass(const Ref<Class>&) const override { return widgets_; }

   private:
    bool widgets_;
  };
  hostHad.bulletinViewControllerInit = decltype(hostHad.bulletinViewControllerInit)(
      [](const Ref<BulletinViewController>& self, auto&&...) { return self; });
  Ref<BulletinViewController> widgets = make<ListController>(true), first = make<ListController>(false),
                              second = make<ListController>(false);
  for (const auto& made : {widgets, first, second}) {
    EXPECT_TRUE(bulletinViewControllerInitWithNibNameBundle(made, {}, {}) == made);
  }
  EXPECT_TRUE(module_->shared.bulletinViewController.lock() == first);
}

TEST_F(Replacements, AHostImplementationThatThrowsStopsAtTheReplacement) {
  auto fail = [](auto&&...) -> bool { throw std::runtime_error("host failure"); };
  hostHad.launchFromLocation = decltype(hostHad.launchFromLocation)(fail);
  hostHad.clickedMenuButton = decltype(hostHad.clickedMenuButton)(fail);
  EXPECT_EQ(eventsOf([] { applicationIconLaunchFromLocation({}, 0); }), std::vector<std::string>{"close"});
  EXPECT_FALSE(uiControllerClickedMenuButton({}));
}

}  // namespace
}  // namespace tessel::hooks
