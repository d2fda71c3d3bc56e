#pragma once

#include <memory>

#include "controller/context.h"
#include "controller/tessel_notification_controller.h"
#include "host/host.h"

namespace tessel {

// The library as loaded into one host process: its context, its one
// controller and the replacements of host methods that feed and close it.
// The process keeps it until it ends.
class Library {
 public:
  // Loads the library, as the loader does: the two initialisers run in their order.
  static std::unique_ptr<Library> load(host::Host& host);

  explicit Library(host::Host& host) : context_(host) {}
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // The first initialiser: collections, settings, and, when enabled, the
  // hooks, the settings subscription and the web-view bundle.
  void firstInitialiser();
  // The second initialiser: `verticalOffset` and `originToStartFrom`.
  void secondInitialiser();
  // Reads the settings file into `darkMode`, `activationMethod` and the
  // enabled preference.
  void readSettings();
  // The settings-changed notification's callback.
  void settingsChanged();

  // `sharedController`: made on first use, kept for the life of the process.
  TesselNotificationController& sharedController();
  // The controller as the host knows it (made on first use too).
  host::Ref<host::Object> sharedControllerObject();

  Context& context() { return context_; }
  const SharedState& shared() const { return context_.state; }
  bool enabledPreference() const { return enabledPreference_; }
  // The controller, if one has been made.
  const TesselNotificationController* controller() const { return controller_.get(); }

 private:
  // Installs the ten replacements, in their order.
  void installHooks();
  // Sends every installed application's identifier to the gesture registration.
  void registerAllApplications();
  void closePanel() { sharedController().removeTesselViewsFromView(nullptr); }

  // The replacements' own work (see hooked_methods.h for what each replaces).
  void rememberIconViewAndRegister(const host::Ref<host::IconView>& view);
  void rememberBulletinViewController(const host::Ref<host::BulletinViewController>& self,
                                      const host::Ref<host::BulletinViewController>& made);
  void rememberFolder(const host::Ref<host::Folder>& self, const host::Ref<host::Folder>& made);
  void unlocked();

  Context context_;
  bool enabledPreference_ = true;
  std::shared_ptr<TesselNotificationController> controller_;
  host::Ref<host::Object> controllerObject_;
};

}  // namespace tessel
