// The ten replacements seen from the method-replacement facility: what is
// installed where, in which order, and how each one wraps the host's own
// implementation. A recording runtime stands in for the facility, so that
// the previous implementations can be observed exactly.

#include <algorithm>
#include <any>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller/shared_state.h"
#include "hooks/library.h"
#include "host/method_signatures.h"

namespace tessel {
namespace {

using namespace host;

std::vector<std::string> events;

class NamedClass : public Class {
 public:
  explicit NamedClass(std::string name) : name_(std::move(name)) {}
  std::string name() const override { return name_; }

 private:
  std::string name_;
};

class RecordingRuntime : public Runtime {
 public:
  Ref<Class> getClass(std::string_view name) override {
    auto& cls = classes[std::string(name)];
    if (!cls) cls = make<NamedClass>(std::string(name));
    return cls;
  }
  std::any hookMessage(const Ref<Class>& cls, std::string_view selector, std::any replacement) override {
    std::string key = cls->name() + " " + std::string(selector);
    installed.push_back(key);
    replacements[key] = std::move(replacement);
    return previous[key];
  }

  std::map<std::string, Ref<Class>> classes;
  std::vector<std::string> installed;
  std::map<std::string, std::any> replacements;
  std::map<std::string, std::any> previous;  // what the host had before
};

// Closing the panel starts by removing the keyboard observers.
class RecordingCenter : public NotificationCenter {
 public:
  void removeObserverNameObject(const ActionTarget*, const String&, const Ref<Object>&) override {
    events.push_back("close");
  }
};

class RecordingHost : public Host {
 public:
  Ref<Runtime> runtime() override { return runtime_; }
  Ref<NotificationCenter> defaultCenter() override { return center_; }

  Ref<RecordingRuntime> runtime_ = make<RecordingRuntime>();
  Ref<RecordingCenter> center_ = make<RecordingCenter>();
};

// An object whose class is one of the runtime's named classes.
template <class Base>
class KindOf : public Base {
 public:
  explicit KindOf(Ref<Class> cls) : class_(std::move(cls)) {}
  Ref<Class> objectClass() const override { return class_; }
  bool isKindOfClass(const Ref<Class>& cls) const override { return cls == class_; }
  bool respondsToSelector(std::string_view selector) const override { return selector == "allIcons"; }

 private:
  Ref<Class> class_;
};

class IconViewAskedForItsIcon : public IconView {
 public:
  Ref<Icon> icon() const override {
    events.push_back("icon");
    return {};
  }
};

class ReplacementsTest : public ::testing::Test {
 protected:
  void SetUp() override { events.clear(); }

  // Gives the host a previous implementation for `key`, then loads.
  template <class Signature>
  void hostHas(const std::string& key, std::function<Signature> implementation) {
    host_.runtime_->previous[key] = std::move(implementation);
  }
  void load() { module_ = loadLibrary(host_); }

  template <class Signature>
  std::function<Signature> replacement(const std::string& key) {
    return std::any_cast<std::function<Signature>>(host_.runtime_->replacements.at(key));
  }
  Ref<Class> cls(const std::string& name) { return host_.runtime_->getClass(name); }

  RecordingHost host_;
  std::unique_ptr<Module> module_;
};

TEST_F(ReplacementsTest, InstallsTheTenReplacementsInTableOrder) {
  load();
  EXPECT_EQ(host_.runtime_->installed, (std::vector<std::string>{
                                           "SBIconView layoutSubviews",
                                           "SBBulletinViewController initWithNibName:bundle:",
                                           "SBFolder initWithMaxListCount:maxIconCountInLists:",
                                           "SBLockScreenManager unlockUIFromSource:withOptions:",
                                           "SBApplicationIcon launchFromLocation:",
                                           "SBAppSwitcherController switcherScroller:itemTapped:",
                                           "SBAppSwitcherController launchAppWithIdentifier:url:actions:",
                                           "SBUIController clickedMenuButton",
                                           "SBUIController handleMenuDoubleTap",
                                           "SBUIController _deviceLockStateChanged:",
                                       }));
}

TEST_F(ReplacementsTest, ClosingReplacementsCallTheHostFirstThenClose) {
  auto recordPrevious = [] { events.push_back("previous"); };
  hostHas<signature::ApplicationIconLaunchFromLocation>("SBApplicationIcon launchFromLocation:",
                                                        [&](auto&&...) { recordPrevious(); });
  hostHas<signature::AppSwitcherSwitcherScrollerItemTapped>("SBAppSwitcherController switcherScroller:itemTapped:",
                                                            [&](auto&&...) { recordPrevious(); });
  hostHas<signature::AppSwitcherLaunchAppWithIdentifierUrlActions>(
      "SBAppSwitcherController launchAppWithIdentifier:url:actions:", [&](auto&&...) { recordPrevious(); });
  hostHas<signature::UIControllerDeviceLockStateChanged>("SBUIController _deviceLockStateChanged:",
                                                         [&](auto&&...) { recordPrevious(); });
  hostHas<signature::LockScreenManagerUnlockUIFromSourceWithOptions>(
      "SBLockScreenManager unlockUIFromSource:withOptions:", [&](auto&&...) { recordPrevious(); });
  load();

  const std::vector<std::string> previousThenClose{"previous", "close", "close"};
  replacement<signature::ApplicationIconLaunchFromLocation>("SBApplicationIcon launchFromLocation:")({}, 3);
  EXPECT_EQ(events, previousThenClose);
  events.clear();
  replacement<signature::AppSwitcherSwitcherScrollerItemTapped>("SBAppSwitcherController switcherScroller:itemTapped:")(
      {}, {}, {});
  EXPECT_EQ(events, previousThenClose);
  events.clear();
  replacement<signature::AppSwitcherLaunchAppWithIdentifierUrlActions>(
      "SBAppSwitcherController launchAppWithIdentifier:url:actions:")({}, "com.example.mail", {}, {});
  EXPECT_EQ(events, previousThenClose);
  events.clear();
  replacement<signature::UIControllerDeviceLockStateChanged>("SBUIController _deviceLockStateChanged:")({}, {});
  EXPECT_EQ(events, previousThenClose);

  // Every unlock closes the panel; the first one also marks the device unlocked.
  for (int unlock = 0; unlock < 2; ++unlock) {
    events.clear();
    replacement<signature::LockScreenManagerUnlockUIFromSourceWithOptions>(
        "SBLockScreenManager unlockUIFromSource:withOptions:")({}, 0, {});
    EXPECT_EQ(events, previousThenClose);
    EXPECT_TRUE(shared().hasUnlockedOnce);
  }
}

TEST_F(ReplacementsTest, MenuButtonsHandBackTheHostsAnswerAndCloseOnlyWhenHandled) {
  bool handled = false;
  hostHas<signature::UIControllerClickedMenuButton>("SBUIController clickedMenuButton", [&](auto&&...) {
    events.push_back("previous");
    return handled;
  });
  hostHas<signature::UIControllerHandleMenuDoubleTap>("SBUIController handleMenuDoubleTap", [&](auto&&...) {
    events.push_back("previous");
    return handled;
  });
  load();

  for (const char* key : {"SBUIController clickedMenuButton", "SBUIController handleMenuDoubleTap"}) {
    SCOPED_TRACE(key);
    auto press = replacement<signature::UIControllerClickedMenuButton>(key);
    events.clear();
    handled = false;
    EXPECT_FALSE(press({}));
    EXPECT_EQ(events, std::vector<std::string>{"previous"});
    events.clear();
    handled = true;
    EXPECT_TRUE(press({}));
    EXPECT_EQ(events, (std::vector<std::string>{"previous", "close", "close"}));
  }
}

TEST_F(ReplacementsTest, IconLayoutDoesItsWorkBeforeTheHostsLayoutAndRemembersTheViewOnce) {
  hostHas<signature::IconViewLayoutSubviews>("SBIconView layoutSubviews",
                                             [](auto&&...) { events.push_back("previous"); });
  load();
  auto layout = replacement<signature::IconViewLayoutSubviews>("SBIconView layoutSubviews");
  auto view = make<IconViewAskedForItsIcon>();

  for (int pass = 0; pass < 3; ++pass) layout(view);

  // Per pass: the icon's kind is asked about, then the host lays the view out.
  events.erase(std::unique(events.begin(), events.end()), events.end());
  EXPECT_EQ(events, (std::vector<std::string>{"icon", "previous", "icon", "previous", "icon", "previous"}));
  ASSERT_EQ(shared().iconViews.size(), 1u);
  EXPECT_TRUE(shared().iconViews[0].lock() == Ref<IconView>(view));
}

TEST_F(ReplacementsTest, InitialisersHandBackTheHostsObjectAndKeepOnlyWhatQualifies) {
  using BulletinInit = signature::BulletinViewControllerInitWithNibNameBundle;
  using FolderInit = signature::FolderInitWithMaxListCountMaxIconCountInLists;
  hostHas<BulletinInit>("SBBulletinViewController initWithNibName:bundle:",
                        [](const Ref<BulletinViewController>& self, auto&&...) { return self; });
  bool folderInitFails = false;
  hostHas<FolderInit>("SBFolder initWithMaxListCount:maxIconCountInLists:",
                      [&](const Ref<Folder>& self, auto&&...) { return folderInitFails ? Ref<Folder>() : self; });
  load();
  auto initBulletins = replacement<BulletinInit>("SBBulletinViewController initWithNibName:bundle:");
  auto initFolder = replacement<FolderInit>("SBFolder initWithMaxListCount:maxIconCountInLists:");

  auto widgetHandling = make<KindOf<BulletinViewController>>(cls("SBWidgetHandlingBulletinViewController"));
  auto first = make<KindOf<BulletinViewController>>(cls("SBBulletinViewController"));
  auto second = make<KindOf<BulletinViewController>>(cls("SBBulletinViewController"));
  EXPECT_TRUE(initBulletins(widgetHandling, "nib", {}) == Ref<BulletinViewController>(widgetHandling));
  EXPECT_FALSE(shared().bulletinViewController);
  EXPECT_TRUE(initBulletins(first, {}, {}) == Ref<BulletinViewController>(first));
  EXPECT_TRUE(initBulletins(second, {}, {}) == Ref<BulletinViewController>(second));
  EXPECT_TRUE(shared().bulletinViewController.lock() == Ref<BulletinViewController>(first));

  Ref<Folder> root = make<KindOf<Folder>>(cls("SBRootFolderWithDock"));
  Ref<Folder> folder = make<KindOf<Folder>>(cls("SBFolder"));
  Ref<Folder> rootSubclass = make<KindOf<Folder>>(cls("SBRootFolderWithDockSubclass"));
  EXPECT_TRUE(initFolder(root, 1, 2) == root);
  EXPECT_TRUE(initFolder(folder, 1, 2) == folder);
  EXPECT_TRUE(initFolder(folder, 1, 2) == folder);
  EXPECT_TRUE(initFolder(rootSubclass, 1, 2) == rootSubclass);
  folderInitFails = true;
  EXPECT_FALSE(initFolder(make<KindOf<Folder>>(cls("SBFolder")), 1, 2));

  auto& folders = shared().folders;
  ASSERT_EQ(folders.size(), 3u);  // no duplicate check, the root folder left out
  EXPECT_TRUE(folders[0].lock() == folder);
  EXPECT_TRUE(folders[1].lock() == folder);
  EXPECT_TRUE(folders[2].lock() == rootSubclass);
}

TEST_F(ReplacementsTest, AHostImplementationThatThrowsStopsAtTheReplacement) {
  hostHas<signature::ApplicationIconLaunchFromLocation>("SBApplicationIcon launchFromLocation:",
                                                        [](auto&&...) { throw std::runtime_error("host failure"); });
  hostHas<signature::UIControllerClickedMenuButton>(
      "SBUIController clickedMenuButton", [](auto&&...) -> bool { throw std::runtime_error("host failure"); });
  load();

  EXPECT_NO_THROW(
      replacement<signature::ApplicationIconLaunchFromLocation>("SBApplicationIcon launchFromLocation:")({}, 0));
  EXPECT_EQ(events, (std::vector<std::string>{"close", "close"}));  // the panel still closes
  EXPECT_FALSE(replacement<signature::UIControllerClickedMenuButton>("SBUIController clickedMenuButton")({}));
}

TEST(LoadingDisabled, InstallsNothingButStillRunsBothInitialisers) {
  class DisabledHost : public RecordingHost {
   public:
    class Settings : public Dictionary {
     public:
      class False : public Value {
       public:
        std::optional<bool> boolValue() const override { return false; }
      };
      Ref<Value> objectForKey(std::string_view key) const override {
        return key == "enabled" ? make<False>() : Ref<Value>();
      }
    };
    class TallScreen : public Screen {
     public:
      Rect bounds() const override { return {0, 0, 320, 568}; }
    };
    Ref<Dictionary> dictionaryWithContentsOfFile(const std::string& path) override {
      return path == kSettingsPath ? make<Settings>() : Ref<Dictionary>();
    }
    Ref<Screen> mainScreen() override { return make<TallScreen>(); }
  } host;

  auto loaded = loadLibrary(host);

  EXPECT_TRUE(host.runtime_->installed.empty());
  EXPECT_FALSE(loaded->enabledPreference);
  EXPECT_EQ(loaded->shared.verticalOffset, 81);  // 568 / 7, truncated
  EXPECT_TRUE(loaded->shared.darkMode);          // absent keys keep their defaults
}

}  // namespace
}  // namespace tessel
