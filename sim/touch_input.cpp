#include "sim/touch_input.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "sim/home_screen.h"
#include "sim/sim_button.h"
#include "sim/sim_host.h"
#include "sim/sim_main_queue.h"
#include "sim/sim_table_view.h"

namespace tessel::sim {

namespace {

constexpr std::int64_t kHomeScreenLocation = 0;
constexpr std::uint64_t kSwipeUp = 4;
constexpr std::uint64_t kSwipeDown = 8;

bool isHomeIconView(SimHost& host, const SimIconView& view) {
  auto* home = host.homeScreen();
  return home && home->iconViewFor(view.simIcon().get()).get() == &view;
}

void launchFromHomeScreen(SimHost& host, SimIconView& view) {
  auto* home = host.homeScreen();
  if (!home || home->editing() || !view.simIcon()) return;
  view.simIcon()->launchFromLocation(kHomeScreenLocation);
}

std::shared_ptr<SimTableView> firstTable(const std::shared_ptr<SimView>& view) {
  if (auto table = std::dynamic_pointer_cast<SimTableView>(view)) return table;
  for (const auto& child : view->children()) {
    if (auto table = firstTable(child)) return table;
  }
  return nullptr;
}

constexpr const char* kGestures[] = {"swipeUp", "swipeDown", "tap", "doubleTap", "tripleTap", "tapAndHold", "hold"};

}  // namespace

std::string tapAt(SimHost& host, const host::Point& windowPoint) {
  auto hit = host.window()->hitTest(windowPoint);
  for (SimView* view = hit.get(); view; view = view->parent()) {
    if (auto* button = dynamic_cast<SimButton*>(view)) {
      button->sendActions(SimButton::kTouchUpInside);
      return "button";
    }
    if (auto* table = dynamic_cast<SimTableView*>(view)) {
      host::Point origin = table->originInRoot();
      auto row = table->rowAt({windowPoint.x - origin.x, windowPoint.y - origin.y});
      if (row < 0) return "";
      table->selectRow(row);
      return "row";
    }
    if (auto* iconView = dynamic_cast<SimIconView*>(view); iconView && isHomeIconView(host, *iconView)) {
      launchFromHomeScreen(host, *iconView);
      return "icon";
    }
  }
  return "";
}

bool recognizes(const SimGestureRecognizer& r, const std::string& gesture) {
  using Kind = SimGestureRecognizer::Kind;
  if (r.touchesRequired() != 1) return false;
  if (gesture == "swipeUp") return r.kind() == Kind::swipe && (r.direction() & kSwipeUp);
  if (gesture == "swipeDown") return r.kind() == Kind::swipe && (r.direction() & kSwipeDown);
  if (gesture == "tap") return r.kind() == Kind::tap && r.tapsRequired() == 1;
  if (gesture == "doubleTap") return r.kind() == Kind::tap && r.tapsRequired() == 2;
  if (gesture == "tripleTap") return r.kind() == Kind::tap && r.tapsRequired() == 3;
  if (gesture == "tapAndHold") return r.kind() == Kind::longPress && r.tapsRequired() == 1;
  if (gesture == "hold") return r.kind() == Kind::longPress && r.tapsRequired() == 0;
  return false;
}

bool isKnownGesture(const std::string& gesture) {
  return std::find(std::begin(kGestures), std::end(kGestures), gesture) != std::end(kGestures);
}

std::shared_ptr<SimGestureRecognizer> recognizerTaking(SimHost& host, const std::string& identifier,
                                                       const std::string& gesture) {
  auto* home = host.homeScreen();
  auto icon = home ? home->iconFor(identifier) : nullptr;
  auto view = home ? home->iconViewFor(icon.get()) : nullptr;
  if (!view) return nullptr;
  for (const auto& recognizer : view->recognizers()) {
    if (recognizes(*recognizer, gesture)) return recognizer;
  }
  return nullptr;
}

bool performGesture(SimHost& host, const std::string& identifier, const std::string& gesture, double hold,
                    double pressedFor) {
  if (!isKnownGesture(gesture)) return false;
  auto* home = host.homeScreen();
  auto view = home ? home->iconViewFor(home->iconFor(identifier).get()) : nullptr;
  if (!view) return false;

  std::shared_ptr<SimGestureRecognizer> taker = recognizerTaking(host, identifier, gesture);
  if (!taker) {
    if (gesture == "tap") launchFromHomeScreen(host, *view);
    return true;
  }
  if (taker->kind() != SimGestureRecognizer::Kind::longPress) {
    taker->sendAction();
    return true;
  }
  // A press shorter than the long press's minimum is not one.
  if (hold < kLongPressBegins) return true;
  std::weak_ptr<SimGestureRecognizer> weak = taker;
  auto send = [weak] {
    if (auto recognizer = weak.lock()) recognizer->sendAction();
  };
  const double down = host.time() - std::clamp(pressedFor, 0.0, hold);
  host.queue().schedule(std::max(host.time(), down + kLongPressBegins), send);
  host.queue().schedule(std::max(host.time(), down + hold), send);
  return true;
}

std::shared_ptr<SimTableView> firstTableInWindow(SimHost& host) { return firstTable(host.window()); }

}  // namespace tessel::sim
