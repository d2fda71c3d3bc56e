#pragma once

#include "controller/module.h"
#include "host/method_signatures.h"

// The library's replacements of host methods, and the host's previous
// implementations that each of them calls.
namespace tessel::hooks {

struct PreviousImplementations {
  host::Previous<host::signature::IconViewLayoutSubviews> iconViewLayoutSubviews;
  host::Previous<host::signature::BulletinViewControllerInitWithNibNameBundle> bulletinViewControllerInit;
  host::Previous<host::signature::FolderInitWithMaxListCountMaxIconCountInLists> folderInit;
  host::Previous<host::signature::LockScreenManagerUnlockUIFromSourceWithOptions> unlockUI;
  host::Previous<host::signature::ApplicationIconLaunchFromLocation> launchFromLocation;
  host::Previous<host::signature::AppSwitcherSwitcherScrollerItemTapped> switcherItemTapped;
  host::Previous<host::signature::AppSwitcherLaunchAppWithIdentifierUrlActions> switcherLaunchApp;
  host::Previous<host::signature::UIControllerClickedMenuButton> clickedMenuButton;
  host::Previous<host::signature::UIControllerHandleMenuDoubleTap> handleMenuDoubleTap;
  host::Previous<host::signature::UIControllerDeviceLockStateChanged> deviceLockStateChanged;
};

inline PreviousImplementations& previous() { return *module().previous; }

// Feeding the library with what the host will not hand out when asked.
void iconViewLayoutSubviews(const host::Ref<host::IconView>& self) noexcept;
host::Ref<host::BulletinViewController> bulletinViewControllerInitWithNibNameBundle(
    const host::Ref<host::BulletinViewController>& self, const host::String& nibName,
    const host::Ref<host::Object>& bundle) noexcept;
host::Ref<host::Folder> folderInitWithMaxListCountMaxIconCountInLists(const host::Ref<host::Folder>& self,
                                                                      std::uint64_t maxListCount,
                                                                      std::uint64_t maxIconCountInLists) noexcept;
void lockScreenManagerUnlockUIFromSourceWithOptions(const host::Ref<host::Object>& self, std::int64_t source,
                                                    const host::Ref<host::Object>& options) noexcept;

// Closing the panel when the user does anything else with the home screen.
void applicationIconLaunchFromLocation(const host::Ref<host::Icon>& self, std::int64_t location) noexcept;
void appSwitcherSwitcherScrollerItemTapped(const host::Ref<host::Object>& self, const host::Ref<host::Object>& scroller,
                                           const host::Ref<host::Object>& item) noexcept;
void appSwitcherLaunchAppWithIdentifierUrlActions(const host::Ref<host::Object>& self, const host::String& identifier,
                                                  const host::Ref<host::Object>& url,
                                                  const host::Ref<host::Object>& actions) noexcept;
bool uiControllerClickedMenuButton(const host::Ref<host::Object>& self) noexcept;
bool uiControllerHandleMenuDoubleTap(const host::Ref<host::Object>& self) noexcept;
void uiControllerDeviceLockStateChanged(const host::Ref<host::Object>& self,
                                        const host::Ref<host::Object>& notification) noexcept;

// Sends every installed application's identifier to the controller's
// gesture registration.
void registerAllApplications();

}  // namespace tessel::hooks
