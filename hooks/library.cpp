#include "hooks/library.h"

#include "controller/host_lookup.h"
#include "controller/shielded.h"
#include "controller/truncation.h"

namespace tessel {
namespace {

constexpr std::int64_t kCoalesce = 2;
// Releases from this one need the web-view framework loaded by hand.
constexpr double kWebKitLoadRelease = 1140.1;

void registerLibraryClass(const std::string& name, const std::string& superclassName) {
  auto cls = hostRef().runtime()->registerClass(name, classNamed(superclassName));
  module().classes.remember(name, cls);
}

}  // namespace

std::unique_ptr<Module> loadLibrary(host::Host& host) {
  auto loaded = std::make_unique<Module>(host);
  shielded([] {
    registerLibraryClass("TesselNotificationController", "NSObject");
    registerLibraryClass("TesselGenericNotificationView", "UIView");
  });
  shielded(firstInitialiser);
  shielded(secondInitialiser);
  return loaded;
}

void firstInitialiser() {
  auto& state = shared();
  state.iconViews.clear();
  state.folders.clear();
  readSettings();
  // Switched off: inert until the host restarts, whatever the settings say later.
  if (!module().enabledPreference) return;
  installHooks();
  hostRef().darwinNotifyCenter()->addObserver(shieldedBlock(settingsChanged), kPreferencesChangedNotification,
                                              kCoalesce);
  if (hostRef().coreFoundationVersionNumber() >= kWebKitLoadRelease)
    hostRef().bundleWithPath(kWebKitBundlePath)->load();
}

void secondInitialiser() {
  auto& state = shared();
  state.verticalOffset = truncateToInt32(screenBounds().height / 7);
  state.originToStartFrom = 0;
}

}  // namespace tessel
