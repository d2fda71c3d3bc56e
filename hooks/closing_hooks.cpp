#include "controller/shielded.h"
#include "controller/tessel_notification_controller.h"
#include "hooks/replacements.h"

namespace tessel::hooks {
namespace {

void closePanel() {
  shielded([] { TesselNotificationController::sharedController()->removeTesselViewsFromView({}); });
}

}  // namespace

void applicationIconLaunchFromLocation(const host::Ref<host::Icon>& self, std::int64_t location) noexcept {
  shielded([&] { previous().launchFromLocation(self, location); });
  closePanel();
}

void appSwitcherSwitcherScrollerItemTapped(const host::Ref<host::Object>& self, const host::Ref<host::Object>& scroller,
                                           const host::Ref<host::Object>& item) noexcept {
  shielded([&] { previous().switcherItemTapped(self, scroller, item); });
  closePanel();
}

void appSwitcherLaunchAppWithIdentifierUrlActions(const host::Ref<host::Object>& self, const host::String& identifier,
                                                  const host::Ref<host::Object>& url,
                                                  const host::Ref<host::Object>& actions) noexcept {
  shielded([&] { previous().switcherLaunchApp(self, identifier, url, actions); });
  closePanel();
}

// A press that the host did not handle leaves the panel open.
bool uiControllerClickedMenuButton(const host::Ref<host::Object>& self) noexcept {
  bool handled = false;
  shielded([&] { handled = previous().clickedMenuButton(self); });
  if (handled) closePanel();
  return handled;
}

bool uiControllerHandleMenuDoubleTap(const host::Ref<host::Object>& self) noexcept {
  bool handled = false;
  shielded([&] { handled = previous().handleMenuDoubleTap(self); });
  if (handled) closePanel();
  return handled;
}

void uiControllerDeviceLockStateChanged(const host::Ref<host::Object>& self,
                                        const host::Ref<host::Object>& notification) noexcept {
  shielded([&] { previous().deviceLockStateChanged(self, notification); });
  closePanel();
}

}  // namespace tessel::hooks
