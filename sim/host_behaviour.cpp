#include "sim/host_behaviour.h"

#include "host/method_signatures.h"
#include "sim/home_screen.h"
#include "sim/sim_host.h"

namespace tessel::sim {

namespace sig = host::signature;

namespace {

template <class Signature>
void define(SimHost& host, std::string_view className, std::string_view selector, std::function<Signature> fn) {
  host.classNamed(className)->setMethod(selector, std::any(std::move(fn)));
}

// The icon's application comes to the front.
void launch(SimHost& host, const std::string& identifier) {
  if (!identifier.empty()) host.recorder().launched(identifier);
}

template <class T>
host::Ref<host::Object> object(const std::shared_ptr<T>& o) {
  return host::Ref<host::Object>(o);
}

}  // namespace

void installOriginalMethods(SimHost& host) {
  SimHost* h = &host;
  define<sig::IconViewLayoutSubviews>(host, "SBIconView", "layoutSubviews", [](const host::Ref<host::IconView>& self) {
    if (auto* view = dynamic_cast<SimIconView*>(self.get())) view->layoutPicture();
  });
  define<sig::BulletinViewControllerInitWithNibNameBundle>(
      host, "SBBulletinViewController", "initWithNibName:bundle:",
      [](const host::Ref<host::BulletinViewController>& self, const host::String&, const host::Ref<host::Object>&) {
        return self;
      });
  define<sig::FolderInitWithMaxListCountMaxIconCountInLists>(
      host, "SBFolder", "initWithMaxListCount:maxIconCountInLists:",
      [](const host::Ref<host::Folder>& self, std::uint64_t, std::uint64_t) { return self; });
  define<sig::LockScreenManagerUnlockUIFromSourceWithOptions>(
      host, "SBLockScreenManager", "unlockUIFromSource:withOptions:",
      [h](const host::Ref<host::Object>&, std::int64_t, const host::Ref<host::Object>&) {
        if (auto* home = h->homeScreen()) home->setLocked(false);
      });
  // Every kind of icon launches what it stands for; the application icon's
  // class inherits this one.
  define<sig::ApplicationIconLaunchFromLocation>(
      host, "SBIcon", "launchFromLocation:", [h](const host::Ref<host::Icon>& self, std::int64_t) {
        if (auto* icon = dynamic_cast<SimIcon*>(self.get())) {
          if (!icon->folder()) launch(*h, icon->displayIdentifier());
        }
      });
  define<sig::AppSwitcherSwitcherScrollerItemTapped>(
      host, "SBAppSwitcherController", "switcherScroller:itemTapped:",
      [h](const host::Ref<host::Object>&, const host::Ref<host::Object>&, const host::Ref<host::Object>& item) {
        if (auto* app = dynamic_cast<SimApplication*>(item.get())) launch(*h, app->identifier());
      });
  define<sig::AppSwitcherLaunchAppWithIdentifierUrlActions>(
      host, "SBAppSwitcherController", "launchAppWithIdentifier:url:actions:",
      [h](const host::Ref<host::Object>&, const host::String& identifier, const host::Ref<host::Object>&,
          const host::Ref<host::Object>&) { launch(*h, identifier.value_or("")); });
  auto handled = [](const host::Ref<host::Object>& self) {
    auto* controller = dynamic_cast<SimUIController*>(self.get());
    return controller && controller->handlesPress();
  };
  define<sig::UIControllerClickedMenuButton>(host, "SBUIController", "clickedMenuButton", handled);
  define<sig::UIControllerHandleMenuDoubleTap>(host, "SBUIController", "handleMenuDoubleTap", handled);
  define<sig::UIControllerDeviceLockStateChanged>(host, "SBUIController", "_deviceLockStateChanged:",
                                                  [h](const host::Ref<host::Object>&, const host::Ref<host::Object>&) {
                                                    if (auto* home = h->homeScreen()) home->setLocked(true);
                                                  });
}

void installClassOperations(SimHost& host) {
  SimHost* h = &host;
  auto fromHome = [h](auto get) {
    return [h, get]() -> host::Ref<host::Object> {
      auto* home = h->homeScreen();
      return home ? get(*home) : host::Ref<host::Object>();
    };
  };
  host.classNamed("SBIconController")->operations().sharedInstance =
      fromHome([](HomeScreen& home) { return object(home.iconController()); });
  host.classNamed("SBApplicationController")->operations().sharedInstance =
      fromHome([](HomeScreen& home) { return object(home.applicationController()); });
  host.classNamed("SBIconViewMap")->operations().homescreenMap =
      fromHome([](HomeScreen& home) { return object(home.iconViewMap()); });
  // Only the older generation has a list controller; on current hosts there is none.
  host.classNamed("SBBulletinListController")->operations().sharedInstanceIfExists =
      fromHome([](HomeScreen& home) { return object(home.legacyBulletinController()); });
  host.classNamed("SBLockScreenManager")->operations().sharedInstance =
      fromHome([](HomeScreen& home) { return object(home.lockScreenManager()); });
  host.classNamed("SBAppSwitcherController")->operations().sharedInstance =
      fromHome([](HomeScreen& home) { return object(home.appSwitcher()); });
  host.classNamed("SBUIController")->operations().sharedInstance =
      fromHome([](HomeScreen& home) { return object(home.uiController()); });
  host.classNamed("SBIconView")->operations().alloc = [h] {
    return host::Ref<host::Object>(h->create<SimIconView>("SBIconView", host::Rect{}));
  };
  host.classNamed("SBApplicationIcon")->operations().alloc = [h] {
    return host::Ref<host::Object>(h->create<SimIcon>("SBApplicationIcon"));
  };
}

}  // namespace tessel::sim
