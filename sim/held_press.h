#pragma once

#include <memory>
#include <string>

namespace tessel::sim {

class SimGestureRecognizer;
class SimHost;

// A long press whose finger is still down, as a live finger makes one: it
// begins 0.5 s after the finger went down and ends when the finger lifts,
// which nobody knows beforehand. Lifted before it began, it never was one.
class HeldPress {
 public:
  // The press on the icon's long-press recognizer that takes `gesture`
  // ("hold" or "tapAndHold"), its finger down for `pressedFor` seconds
  // already; null when no recognizer there takes it.
  static std::shared_ptr<HeldPress> press(SimHost& host, const std::string& identifier, const std::string& gesture,
                                          double pressedFor);
  // The finger lifts: a press that began ends now.
  void lift();

 private:
  explicit HeldPress(std::weak_ptr<SimGestureRecognizer> recognizer) : recognizer_(std::move(recognizer)) {}
  void begin();

  std::weak_ptr<SimGestureRecognizer> recognizer_;
  bool begun_ = false;
  bool lifted_ = false;
};

}  // namespace tessel::sim
