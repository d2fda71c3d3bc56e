#pragma once

#include <cstdint>
#include <string>

#include "host/bulletins.h"
#include "host/icon_controller.h"
#include "host/icon_view.h"

// The signatures of the host methods that the library replaces; the host
// keeps each implementation as a std::function of its signature.
namespace tessel::host::signature {

using IconViewLayoutSubviews = void(const Ref<IconView>& self);
using BulletinViewControllerInitWithNibNameBundle = Ref<BulletinViewController>(const Ref<BulletinViewController>& self,
                                                                                const String& nibName,
                                                                                const Ref<Object>& bundle);
using FolderInitWithMaxListCountMaxIconCountInLists = Ref<Folder>(const Ref<Folder>& self, std::uint64_t maxListCount,
                                                                  std::uint64_t maxIconCountInLists);
using LockScreenManagerUnlockUIFromSourceWithOptions = void(const Ref<Object>& self, std::int64_t source,
                                                            const Ref<Object>& options);
using ApplicationIconLaunchFromLocation = void(const Ref<Icon>& self, std::int64_t location);
using AppSwitcherSwitcherScrollerItemTapped = void(const Ref<Object>& self, const Ref<Object>& scroller,
                                                   const Ref<Object>& item);
using AppSwitcherLaunchAppWithIdentifierUrlActions = void(const Ref<Object>& self, const String& identifier,
                                                          const Ref<Object>& url, const Ref<Object>& actions);
using UIControllerClickedMenuButton = bool(const Ref<Object>& self);
using UIControllerHandleMenuDoubleTap = bool(const Ref<Object>& self);
using UIControllerDeviceLockStateChanged = void(const Ref<Object>& self, const Ref<Object>& notification);

}  // namespace tessel::host::signature
