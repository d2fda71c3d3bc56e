#include "hooks/library.h"
#include "host/hooked_methods.h"

namespace tessel {
namespace {

using host::PreviousRuns;

// The application icons that can show a panel; web clips, newsstand icons
// and icons without an identified application cannot. The icon is asked
// afresh for each test, as the host may hand out a new one.
host::String registrableBundleIdentifier(Context& context, const host::Ref<host::IconView>& view) {
  if (view->icon()->isKindOfClass(context.classNamed("SBNewsstandApplicationIcon"))) return {};
  // An icon tested against a view class: never true, kept as the phone has it.
  if (view->icon()->isKindOfClass(context.classNamed("SBNewsstandItemIconView"))) return {};
  if (view->icon()->isKindOfClass(context.classNamed("SBWebApplicationIcon"))) return {};
  if (!view->icon()->isKindOfClass(context.classNamed("SBApplicationIcon"))) return {};
  if (!view->icon()->respondsToSelector("application")) return {};
  if (!view->icon()->application()->respondsToSelector("bundleIdentifier")) return {};
  return view->icon()->application()->bundleIdentifier();
}

}  // namespace

void Library::installHooks() {
  namespace hooked = host::hooked;
  auto& runtime = context_.runtime();
  auto replace = [&](const auto& hook, PreviousRuns order, auto work) {
    host::replaceMethod(runtime, context_.classNamed(std::string(hook.className)), hook, order, std::move(work));
  };
  auto close = [this](auto&&...) { closePanel(); };
  // The menu buttons close the panel only when the host handled the press.
  auto closeIfHandled = [this](const host::Ref<host::Object>&, bool handled) {
    if (handled) closePanel();
  };

  replace(hooked::iconViewLayoutSubviews, PreviousRuns::last,
          [this](const host::Ref<host::IconView>& self) { rememberIconViewAndRegister(self); });
  replace(
      hooked::bulletinViewControllerInitWithNibNameBundle, PreviousRuns::first,
      [this](const host::Ref<host::BulletinViewController>& self, const host::String&, const host::Ref<host::Object>&,
             const host::Ref<host::BulletinViewController>& made) { rememberBulletinViewController(self, made); });
  replace(hooked::folderInitWithMaxListCountMaxIconCountInLists, PreviousRuns::first,
          [this](const host::Ref<host::Folder>& self, std::uint64_t, std::uint64_t,
                 const host::Ref<host::Folder>& made) { rememberFolder(self, made); });
  replace(hooked::lockScreenManagerUnlockUIFromSourceWithOptions, PreviousRuns::first,
          [this](auto&&...) { unlocked(); });
  replace(hooked::applicationIconLaunchFromLocation, PreviousRuns::first, close);
  replace(hooked::appSwitcherSwitcherScrollerItemTapped, PreviousRuns::first, close);
  replace(hooked::appSwitcherLaunchAppWithIdentifierUrlActions, PreviousRuns::first, close);
  replace(hooked::uiControllerClickedMenuButton, PreviousRuns::first, closeIfHandled);
  replace(hooked::uiControllerHandleMenuDoubleTap, PreviousRuns::first, closeIfHandled);
  replace(hooked::uiControllerDeviceLockStateChanged, PreviousRuns::first, close);
}

void Library::rememberIconViewAndRegister(const host::Ref<host::IconView>& view) {
  context_.state.iconViews.insert(view);
  auto bundleIdentifier = registrableBundleIdentifier(context_, view);
  if (bundleIdentifier) sharedController().registerLongHoldNotificationWithBundleIdentifier(bundleIdentifier);
}

// Only the first controller made after load is kept; widget-handling ones never.
void Library::rememberBulletinViewController(const host::Ref<host::BulletinViewController>& self,
                                             const host::Ref<host::BulletinViewController>& made) {
  auto& kept = context_.state.bulletinViewController;
  if (made && !kept && !self->isKindOfClass(context_.classNamed("SBWidgetHandlingBulletinViewController"))) {
    kept = made;
  }
}

// Subclasses of the root folder are kept; only the root folder's own class is not.
void Library::rememberFolder(const host::Ref<host::Folder>& self, const host::Ref<host::Folder>& made) {
  if (made && self->respondsToSelector("allIcons") &&
      self->objectClass() != context_.classNamed("SBRootFolderWithDock")) {
    context_.state.folders.push_back(self);
  }
}

void Library::unlocked() {
  auto& state = context_.state;
  if (!state.hasUnlockedOnce) registerAllApplications();
  state.hasUnlockedOnce = true;
  closePanel();
}

}  // namespace tessel
