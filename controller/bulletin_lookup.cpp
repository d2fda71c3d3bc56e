#include "controller/tessel_notification_controller.h"

namespace tessel {
namespace {

std::optional<host::BulletinArray> bulletinsFromListController(Context& context, const host::String& bundleIdentifier) {
  host::Ref<host::LegacyBulletinSection> section;
  for (std::int64_t index = 0;; ++index) {
    auto list = host::cast<host::BulletinListController>(
        context.classNamed("SBBulletinListController")->sharedInstanceIfExists());
    section = list->_sectionAtIndex(index);
    if (!section) return std::nullopt;
    if (host::isEqualToString(section->sectionID(), bundleIdentifier)) break;
  }
  host::BulletinArray bulletins;
  if (section->bulletinCount() == 0) return bulletins;
  // The count is asked again after every bulletin: the list may change.
  for (std::uint64_t index = 0;; ++index) {
    bulletins.push_back(section->bulletinAtIndex(index));
    if (index + 1 >= section->bulletinCount()) break;
  }
  return bulletins;
}

std::optional<host::BulletinArray> bulletinsFromViewController(Context& context, const host::String& bundleIdentifier) {
  auto viewController = context.state.bulletinViewController.lock();
  host::Ref<host::BulletinSectionController> section;
  for (std::int64_t index = 0;; ++index) {
    section = viewController->sectionAtIndex(index);
    // A missing section never matches, so testing the match first is safe.
    if (host::isEqualToString(section->representedListSection()->sectionID(), bundleIdentifier)) break;
    if (!section) return std::nullopt;
  }
  return section->representedListSection()->bulletins();
}

}  // namespace

std::optional<host::BulletinArray> TesselNotificationController::bulletinsForBundleIdentifier(
    const host::String& bundleIdentifier) {
  if (context_.host.coreFoundationVersionNumber() <= host::platform::kLastListControllerRelease) {
    return bulletinsFromListController(context_, bundleIdentifier);
  }
  return bulletinsFromViewController(context_, bundleIdentifier);
}

}  // namespace tessel
