#pragma once

#include <cstdint>
#include <tuple>

#include "host/bulletins.h"
#include "host/icon_controller.h"
#include "host/icon_view.h"
#include "host/method_hook.h"

// The host methods that the library replaces, in the order it installs them.
namespace tessel::host::hooked {

inline constexpr MethodHook<void(const Ref<IconView>& self)> iconViewLayoutSubviews{{"SBIconView", "layoutSubviews"}};
inline constexpr MethodHook<Ref<BulletinViewController>(const Ref<BulletinViewController>& self, const String& nibName,
                                                        const Ref<Object>& bundle)>
    bulletinViewControllerInitWithNibNameBundle{{"SBBulletinViewController", "initWithNibName:bundle:"}};
inline constexpr MethodHook<Ref<Folder>(const Ref<Folder>& self, std::uint64_t maxListCount,
                                        std::uint64_t maxIconCountInLists)>
    folderInitWithMaxListCountMaxIconCountInLists{{"SBFolder", "initWithMaxListCount:maxIconCountInLists:"}};
inline constexpr MethodHook<void(const Ref<Object>& self, std::int64_t source, const Ref<Object>& options)>
    lockScreenManagerUnlockUIFromSourceWithOptions{{"SBLockScreenManager", "unlockUIFromSource:withOptions:"}};
inline constexpr MethodHook<void(const Ref<Icon>& self, std::int64_t location)> applicationIconLaunchFromLocation{
    {"SBApplicationIcon", "launchFromLocation:"}};
inline constexpr MethodHook<void(const Ref<Object>& self, const Ref<Object>& scroller, const Ref<Object>& item)>
    appSwitcherSwitcherScrollerItemTapped{{"SBAppSwitcherController", "switcherScroller:itemTapped:"}};
inline constexpr MethodHook<void(const Ref<Object>& self, const String& identifier, const Ref<Object>& url,
                                 const Ref<Object>& actions)>
    appSwitcherLaunchAppWithIdentifierUrlActions{{"SBAppSwitcherController", "launchAppWithIdentifier:url:actions:"}};
inline constexpr MethodHook<bool(const Ref<Object>& self)> uiControllerClickedMenuButton{
    {"SBUIController", "clickedMenuButton"}};
inline constexpr MethodHook<bool(const Ref<Object>& self)> uiControllerHandleMenuDoubleTap{
    {"SBUIController", "handleMenuDoubleTap"}};
inline constexpr MethodHook<void(const Ref<Object>& self, const Ref<Object>& notification)>
    uiControllerDeviceLockStateChanged{{"SBUIController", "_deviceLockStateChanged:"}};

// All ten, for hosts that make one trampoline per replaced method.
inline constexpr auto all = std::tie(
    iconViewLayoutSubviews, bulletinViewControllerInitWithNibNameBundle, folderInitWithMaxListCountMaxIconCountInLists,
    lockScreenManagerUnlockUIFromSourceWithOptions, applicationIconLaunchFromLocation,
    appSwitcherSwitcherScrollerItemTapped, appSwitcherLaunchAppWithIdentifierUrlActions, uiControllerClickedMenuButton,
    uiControllerHandleMenuDoubleTap, uiControllerDeviceLockStateChanged);

}  // namespace tessel::host::hooked
