#include "sim/host_behaviour.h"

#include "host/hooked_methods.h"
#include "sim/home_screen.h"
#include "sim/sim_host.h"

namespace tessel::sim {

namespace hooked = host::hooked;

namespace {

// The host's own implementation of a replaceable method, on `className`
// (a class at or above the one the library replaces it on).
template <class Signature>
void define(SimHost& host, std::string_view className, const host::MethodHook<Signature>& hook,
            typename host::MethodHook<Signature>::Implementation fn) {
  host.classNamed(className)->setMethod(hook.selector, std::any(std::move(fn)));
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
  define(host, "SBIconView", hooked::iconViewLayoutSubviews, [](const host::Ref<host::IconView>& self) {
    if (auto* view = dynamic_cast<SimIconView*>(self.get())) view->layoutPicture();
  });
  define(host, "SBBulletinViewController", hooked::bulletinViewControllerInitWithNibNameBundle,
         [](const host::Ref<host::BulletinViewController>& self, const host::String&, const host::Ref<host::Object>&) {
           return self;
         });
  define(host, "SBFolder", hooked::folderInitWithMaxListCountMaxIconCountInLists,
         [](const host::Ref<host::Folder>& self, std::uint64_t, std::uint64_t) { return self; });
  define(host, "SBLockScreenManager", hooked::lockScreenManagerUnlockUIFromSourceWithOptions,
         [h](const host::Ref<host::Object>&, std::int64_t, const host::Ref<host::Object>&) {
           if (auto* home = h->homeScreen()) home->setLocked(false);
         });
  // Every kind of icon launches what it stands for; the application icon's
  // class inherits this one.
  define(host, "SBIcon", hooked::applicationIconLaunchFromLocation,
         [h](const host::Ref<host::Icon>& self, std::int64_t) {
           if (auto* icon = dynamic_cast<SimIcon*>(self.get())) {
             if (!icon->folder()) launch(*h, icon->displayIdentifier());
           }
         });
  define(host, "SBAppSwitcherController", hooked::appSwitcherSwitcherScrollerItemTapped,
         [h](const host::Ref<host::Object>&, const host::Ref<host::Object>&, const host::Ref<host::Object>& item) {
           if (auto* app = dynamic_cast<SimApplication*>(item.get())) launch(*h, app->identifier());
         });
  define(host, "SBAppSwitcherController", hooked::appSwitcherLaunchAppWithIdentifierUrlActions,
         [h](const host::Ref<host::Object>&, const host::String& identifier, const host::Ref<host::Object>&,
             const host::Ref<host::Object>&) { launch(*h, identifier.value_or("")); });
  auto handled = [](const host::Ref<host::Object>& self) {
    auto* controller = dynamic_cast<SimUIController*>(self.get());
    return controller && controller->handlesPress();
  };
  define(host, "SBUIController", hooked::uiControllerClickedMenuButton, handled);
  define(host, "SBUIController", hooked::uiControllerHandleMenuDoubleTap, handled);
  define(host, "SBUIController", hooked::uiControllerDeviceLockStateChanged,
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
