#include "controller/host_lookup.h"
#include "controller/shielded.h"
#include "controller/tessel_notification_controller.h"
#include "hooks/replacements.h"

namespace tessel::hooks {
namespace {

void rememberIconView(const host::Ref<host::IconView>& view) {
  auto& iconViews = shared().iconViews;
  for (const auto& known : iconViews) {
    if (known.lock() == view) return;
  }
  iconViews.push_back(view);
}

// The application icons that can show a panel; web clips, newsstand icons
// and icons without an identified application cannot. The icon is asked
// afresh for each test, as the host may hand out a new one.
host::String registrableBundleIdentifier(const host::Ref<host::IconView>& view) {
  if (view->icon()->isKindOfClass(classNamed("SBNewsstandApplicationIcon"))) return {};
  // An icon tested against a view class: never true, kept as the phone has it.
  if (view->icon()->isKindOfClass(classNamed("SBNewsstandItemIconView"))) return {};
  if (view->icon()->isKindOfClass(classNamed("SBWebApplicationIcon"))) return {};
  if (!view->icon()->isKindOfClass(classNamed("SBApplicationIcon"))) return {};
  if (!view->icon()->respondsToSelector("application")) return {};
  if (!view->icon()->application()->respondsToSelector("bundleIdentifier")) return {};
  return view->icon()->application()->bundleIdentifier();
}

}  // namespace

void registerAllApplications() {
  auto controller = TesselNotificationController::sharedController();
  for (const auto& application : iconController()->allApplications()) {
    controller->registerLongHoldNotificationWithBundleIdentifier(application->bundleIdentifier());
  }
}

void iconViewLayoutSubviews(const host::Ref<host::IconView>& self) noexcept {
  shielded([&] {
    rememberIconView(self);
    auto bundleIdentifier = registrableBundleIdentifier(self);
    if (bundleIdentifier) {
      TesselNotificationController::sharedController()->registerLongHoldNotificationWithBundleIdentifier(
          bundleIdentifier);
    }
  });
  shielded([&] { previous().iconViewLayoutSubviews(self); });
}

host::Ref<host::BulletinViewController> bulletinViewControllerInitWithNibNameBundle(
    const host::Ref<host::BulletinViewController>& self, const host::String& nibName,
    const host::Ref<host::Object>& bundle) noexcept {
  host::Ref<host::BulletinViewController> result;
  shielded([&] { result = previous().bulletinViewControllerInit(self, nibName, bundle); });
  shielded([&] {
    auto& kept = shared().bulletinViewController;
    if (result && !kept && !self->isKindOfClass(classNamed("SBWidgetHandlingBulletinViewController"))) kept = result;
  });
  return result;
}

host::Ref<host::Folder> folderInitWithMaxListCountMaxIconCountInLists(const host::Ref<host::Folder>& self,
                                                                      std::uint64_t maxListCount,
                                                                      std::uint64_t maxIconCountInLists) noexcept {
  host::Ref<host::Folder> result;
  shielded([&] { result = previous().folderInit(self, maxListCount, maxIconCountInLists); });
  shielded([&] {
    // Subclasses of the root folder are kept; only the root folder's own class is not.
    if (result && self->respondsToSelector("allIcons") && self->objectClass() != classNamed("SBRootFolderWithDock")) {
      shared().folders.push_back(self);
    }
  });
  return result;
}

void lockScreenManagerUnlockUIFromSourceWithOptions(const host::Ref<host::Object>& self, std::int64_t source,
                                                    const host::Ref<host::Object>& options) noexcept {
  shielded([&] { previous().unlockUI(self, source, options); });
  shielded([&] {
    auto& state = shared();
    if (!state.hasUnlockedOnce) registerAllApplications();
    state.hasUnlockedOnce = true;
    TesselNotificationController::sharedController()->removeTesselViewsFromView({});
  });
}

}  // namespace tessel::hooks
