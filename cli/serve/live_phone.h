#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/serve/session_log.h"
#include "cli/serve/touch_classifier.h"
#include "host/geometry.h"
#include "sim/world_config.h"

namespace tessel::sim {
class HeldPress;
class World;
}  // namespace tessel::sim

namespace tessel::cli::serve {

// The served phone as a person and the host drive it: each event runs on the
// simulated phone at its current time and goes into the session's log; one
// that names nothing on this phone returns false and is neither run nor
// logged. Not thread-safe: one thread owns it.
class LivePhone {
 public:
  explicit LivePhone(const sim::WorldConfig& config);
  ~LivePhone();
  LivePhone(const LivePhone&) = delete;
  LivePhone& operator=(const LivePhone&) = delete;

  sim::World& world() { return *world_; }
  const sim::World& world() const { return *world_; }
  const SessionLog& log() const { return log_; }

  // `pressedFor`: how much of `hold` had passed before the gesture was
  // known; it is logged from when the finger went down.
  bool gesture(const std::string& icon, const std::string& gesture, double hold, double pressedFor = 0);
  void tap(const host::Point& point);
  bool tapRow(long long row);
  void settings(const sim::WorldConfig::Settings& settings);
  // The keyboard comes up from the bottom edge, or goes back below it.
  void keyboard(bool show);
  void lock();
  void unlock();
  void home();
  void doubleHome();
  void notify(const std::string& app, const std::string& title, const std::string& message);
  bool page(int index);
  bool openFolder(const std::string& name);
  bool closeFolder(const std::string& name);

  // One finger on the screen, with the wall-clock time in seconds; the
  // gestures it makes are performed as the events above.
  void touchDown(const host::Point& point, double t);
  void touchMove(const host::Point& point, double t);
  void touchUp(const host::Point& point, double t);
  void touchCancel();
  // Lets the passing of time decide a finger's gesture.
  void pollTouches(double t);

  const sim::WorldConfig::Settings& currentSettings() const { return settings_; }
  bool keyboardShown() const { return keyboardShown_; }

 private:
  void perform(const std::vector<TouchOutcome>& outcomes);
  // A long press known while its finger is down lasts until the finger
  // lifts; one known only as it lifts is over at once.
  void longPress(const std::string& icon, const std::string& gesture);
  void liftHeld();
  // A tap as a finger makes it: a folder's icon opens the folder, a tap on
  // nothing closes an open folder, anything else goes to the host.
  void fingerTap(const host::Point& point);
  double now() const;

  std::unique_ptr<sim::World> world_;
  SessionLog log_;
  TouchClassifier touches_;
  bool fingerDown_ = false;
  double fingerDownAt_ = 0;  // the phone's time when the finger last went down
  // A long press whose finger is still down, logged once it lifts.
  struct Held {
    std::shared_ptr<sim::HeldPress> press;
    std::string icon;
    std::string gesture;
    double downAt = 0;
  };
  std::optional<Held> held_;
  sim::WorldConfig::Settings settings_;
  bool keyboardShown_ = false;
};

}  // namespace tessel::cli::serve
