#include "sim/held_press.h"

#include <algorithm>

#include "sim/sim_host.h"
#include "sim/sim_main_queue.h"
#include "sim/touch_input.h"

namespace tessel::sim {

std::shared_ptr<HeldPress> HeldPress::press(SimHost& host, const std::string& identifier, const std::string& gesture,
                                            double pressedFor) {
  auto recognizer = recognizerTaking(host, identifier, gesture);
  if (!recognizer || recognizer->kind() != SimGestureRecognizer::Kind::longPress) return nullptr;
  std::shared_ptr<HeldPress> held(new HeldPress(recognizer));
  std::weak_ptr<HeldPress> weak = held;
  const double down = host.time() - std::max(pressedFor, 0.0);
  host.queue().schedule(std::max(host.time(), down + kLongPressBegins), [weak] {
    if (auto press = weak.lock()) press->begin();
  });
  return held;
}

void HeldPress::begin() {
  if (lifted_) return;
  begun_ = true;
  if (auto recognizer = recognizer_.lock()) recognizer->sendAction();
}

void HeldPress::lift() {
  if (lifted_) return;
  lifted_ = true;
  if (!begun_) return;
  if (auto recognizer = recognizer_.lock()) recognizer->sendAction();
}

}  // namespace tessel::sim
