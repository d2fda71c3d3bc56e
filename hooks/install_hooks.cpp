#include <functional>
#include <memory>

#include "hooks/library.h"
#include "hooks/replacements.h"

namespace tessel {

void installHooks() {
  using namespace host::signature;
  using host::hookMessage;
  auto runtime = hostRef().runtime();
  auto& slots = *(module().previous = std::make_shared<hooks::PreviousImplementations>());

  slots.iconViewLayoutSubviews = hookMessage<IconViewLayoutSubviews>(*runtime, classNamed("SBIconView"),
                                                                     "layoutSubviews", hooks::iconViewLayoutSubviews);
  slots.bulletinViewControllerInit = hookMessage<BulletinViewControllerInitWithNibNameBundle>(
      *runtime, classNamed("SBBulletinViewController"),
      "initWithNibName:bundle:", hooks::bulletinViewControllerInitWithNibNameBundle);
  slots.folderInit = hookMessage<FolderInitWithMaxListCountMaxIconCountInLists>(
      *runtime, classNamed("SBFolder"),
      "initWithMaxListCount:maxIconCountInLists:", hooks::folderInitWithMaxListCountMaxIconCountInLists);
  slots.unlockUI = hookMessage<LockScreenManagerUnlockUIFromSourceWithOptions>(
      *runtime, classNamed("SBLockScreenManager"),
      "unlockUIFromSource:withOptions:", hooks::lockScreenManagerUnlockUIFromSourceWithOptions);
  slots.launchFromLocation = hookMessage<ApplicationIconLaunchFromLocation>(
      *runtime, classNamed("SBApplicationIcon"), "launchFromLocation:", hooks::applicationIconLaunchFromLocation);
  slots.switcherItemTapped = hookMessage<AppSwitcherSwitcherScrollerItemTapped>(
      *runtime, classNamed("SBAppSwitcherController"),
      "switcherScroller:itemTapped:", hooks::appSwitcherSwitcherScrollerItemTapped);
  slots.switcherLaunchApp = hookMessage<AppSwitcherLaunchAppWithIdentifierUrlActions>(
      *runtime, classNamed("SBAppSwitcherController"),
      "launchAppWithIdentifier:url:actions:", hooks::appSwitcherLaunchAppWithIdentifierUrlActions);
  slots.clickedMenuButton = hookMessage<UIControllerClickedMenuButton>(
      *runtime, classNamed("SBUIController"), "clickedMenuButton", hooks::uiControllerClickedMenuButton);
  slots.handleMenuDoubleTap = hookMessage<UIControllerHandleMenuDoubleTap>(
      *runtime, classNamed("SBUIController"), "handleMenuDoubleTap", hooks::uiControllerHandleMenuDoubleTap);
  slots.deviceLockStateChanged = hookMessage<UIControllerDeviceLockStateChanged>(
      *runtime, classNamed("SBUIController"), "_deviceLockStateChanged:", hooks::uiControllerDeviceLockStateChanged);
}

}  // namespace tessel
