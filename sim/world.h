#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/geometry.h"
#include "sim/world_config.h"

namespace tessel {
class Library;
}

namespace tessel::sim {

class HeldPress;
class SimHost;

// A simulated phone: the substitute host with its home screen, the library
// loaded into it, and a virtual clock. Every event runs as one turn of the
// main queue at the current time, followed by the layout pass.
class World {
 public:
  explicit World(const WorldConfig& config);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  SimHost& host();
  const SimHost& host() const;
  const WorldConfig& config() const;
  // The loaded library.
  const Library* library() const;
  Library* library();
  double time() const;
  // Runs every block, timer and animation completion due up to `t`, in time
  // order, then sets the clock to `t`.
  void advanceTo(double t);

  // The events of a scenario. Each returns false (doing nothing) when what
  // it names does not exist on this phone.
  void unlock();
  void lock();
  bool layout(const std::optional<std::string>& bundleIdentifier);
  // `gesture`: "swipeUp", "swipeDown", "tap", "doubleTap", "tripleTap",
  // "tapAndHold", "hold"; `hold` is how long the finger stays down, of
  // which `pressedFor` has passed already (a live finger's long press is
  // known only once it has lasted).
  bool gesture(const std::string& bundleIdentifier, const std::string& gesture, double hold, double pressedFor = 0);
  // A live finger's long press ("hold" or "tapAndHold"), down for
  // `pressedFor` seconds already, held until `lift`; null when nothing on
  // the icon takes it.
  std::shared_ptr<HeldPress> pressAndHold(const std::string& bundleIdentifier, const std::string& gesture,
                                          double pressedFor);
  void lift(HeldPress& press);
  void tap(const host::Point& windowPoint);
  bool tapRow(long long row);
  void home(bool handled);
  void doubleHome(bool handled);
  bool switcherTap(const std::string& bundleIdentifier);
  bool switcherLaunch(const std::string& bundleIdentifier);
  bool launch(const std::string& bundleIdentifier);
  void keyboard(bool show, const host::Rect& endFrame);
  void editing(bool on);
  bool openFolder(const std::string& name);
  bool closeFolder(const std::string& name);
  bool page(int index);
  void notify(const std::string& bundleIdentifier, const WorldConfig::Notification& notification);
  void settings(const WorldConfig::Settings& settings);

  // The state dump of the public scenario contract, at the current time.
  nlohmann::json dump() const;
  // The dump without its animations, and the animations one at a time: a
  // long run's animations are too many to hold as one document.
  nlohmann::json dumpWithoutAnimations() const;
  void forEachAnimation(const std::function<void(const nlohmann::json&)>& visit) const;
  // Every host call, hook, dispatch, animation and event so far, one JSON
  // object per line of trace.jsonl, in order.
  const std::vector<nlohmann::json>& trace() const;
  // Sends the trace to `sink` line by line as it happens, so that a long run
  // need not keep it; trace() then holds nothing.
  void streamTrace(std::function<void(const nlohmann::json&)> sink);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tessel::sim
