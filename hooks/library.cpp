#include "hooks/library.h"

#include <string>

#include "controller/truncation.h"
#include "hooks/settings_schema.h"

namespace tessel {
namespace {
constexpr const char* kWebKitBundlePath = "/System/Library/Frameworks/WebKit.framework";
}  // namespace

std::unique_ptr<Library> Library::load(host::Host& host) {
  auto library = std::make_unique<Library>(host);
  host::shield([&] { library->firstInitialiser(); });
  host::shield([&] { library->secondInitialiser(); });
  return library;
}

void Library::firstInitialiser() {
  auto& state = context_.state;
  state.iconViews.clear();
  state.folders.clear();
  readSettings();
  // Switched off: inert until the host restarts, whatever the settings say later.
  if (!enabledPreference_) return;
  installHooks();
  context_.host.darwinNotifyCenter()->addObserver([this] { settingsChanged(); },
                                                  std::string(settings::kChangedNotification),
                                                  host::platform::kSuspensionBehaviorCoalesce);
  if (context_.host.coreFoundationVersionNumber() >= host::platform::kWebKitSeparateRelease)
    context_.host.bundleWithPath(kWebKitBundlePath)->load();
}

void Library::secondInitialiser() {
  auto& state = context_.state;
  state.verticalOffset = truncateToInt32(context_.screenBounds().height / 7);
  state.originToStartFrom = 0;
}

TesselNotificationController& Library::sharedController() {
  if (!controller_) {
    auto made = TesselNotificationController::make(context_);
    controller_ = made.controller;
    controllerObject_ = made.object;
  }
  return *controller_;
}

host::Ref<host::Object> Library::sharedControllerObject() {
  sharedController();
  return controllerObject_;
}

void Library::registerAllApplications() {
  auto& controller = sharedController();
  for (const auto& application : context_.iconController()->allApplications()) {
    controller.registerLongHoldNotificationWithBundleIdentifier(application->bundleIdentifier());
  }
}

}  // namespace tessel
