#include "cli/serve/touch_classifier.h"

#include <algorithm>
#include <cmath>

namespace tessel::cli::serve {

namespace {

double distance(const host::Point& a, const host::Point& b) { return std::hypot(a.x - b.x, a.y - b.y); }

TouchOutcome tapAt(const host::Point& point) {
  TouchOutcome outcome;
  outcome.kind = TouchOutcome::Kind::tap;
  outcome.point = point;
  return outcome;
}

TouchOutcome iconGesture(const std::string& icon, const std::string& gesture, const host::Point& point, double hold) {
  TouchOutcome outcome;
  outcome.kind = TouchOutcome::Kind::iconGesture;
  outcome.point = point;
  outcome.icon = icon;
  outcome.gesture = gesture;
  outcome.hold = hold;
  return outcome;
}

}  // namespace

int TouchClassifier::tapsCounted() const {
  int most = 1;
  // After a tap, a tap-and-hold recognizer waits for the second press too.
  if (target_.takes.count("doubleTap") || target_.takes.count("tapAndHold")) most = 2;
  if (target_.takes.count("tripleTap")) most = 3;
  return most;
}

void TouchClassifier::deliverTaps(int taps, const host::Point& point, std::vector<TouchOutcome>& out) const {
  if (taps <= 0) return;
  if (taps >= 2 && !target_.icon.empty()) {
    std::string name = taps == 2 ? "doubleTap" : "tripleTap";
    if (target_.takes.count(name)) {
      out.push_back(iconGesture(target_.icon, name, point, 0));
      return;
    }
  }
  // Taps that no recognizer counts come to one tap, which the icon or
  // whatever else is there takes as usual.
  out.push_back(tapAt(point));
}

std::optional<TouchOutcome> TouchClassifier::longPress() const {
  if (!press_ || target_.icon.empty()) return std::nullopt;
  std::string name = press_->tapsBefore >= 1 ? "tapAndHold" : "hold";
  return iconGesture(target_.icon, name, press_->start, kLongPress);
}

std::vector<TouchOutcome> TouchClassifier::down(const host::Point& point, double t, const Lookup& lookup) {
  std::vector<TouchOutcome> out;
  press_.reset();  // a down without an up before it: the earlier press is lost
  int tapsBefore = 0;
  host::Point firstTap = point;
  if (pending_) {
    if (t - pending_->upAt <= kMultiTapWindow && distance(point, pending_->point) < kSwipeDistance) {
      tapsBefore = pending_->taps;
      firstTap = pending_->point;
    } else {
      deliverTaps(pending_->taps, pending_->point, out);
    }
    pending_.reset();
  }
  if (tapsBefore == 0) target_ = lookup(point);
  press_ = Press{point, firstTap, point, t, tapsBefore};
  return out;
}

std::vector<TouchOutcome> TouchClassifier::move(const host::Point& point, double) {
  if (press_) {
    press_->last = point;
    if (distance(point, press_->start) > kTapSlop) press_->wandered = true;
  }
  return {};
}

std::vector<TouchOutcome> TouchClassifier::up(const host::Point& point, double t) {
  std::vector<TouchOutcome> out;
  if (!press_) return out;
  double dx = point.x - press_->start.x;
  double dy = point.y - press_->start.y;
  bool travelled = std::hypot(dx, dy) >= kSwipeDistance;
  bool longAlready = press_->longSent;
  bool longNow = !longAlready && !press_->wandered && !travelled && t - press_->downAt >= kLongPress;
  if (longNow) {
    if (auto outcome = longPress()) out.push_back(*outcome);
  }
  Press press = *press_;
  press_.reset();
  if (longAlready || longNow) return out;

  if (travelled) {
    deliverTaps(press.tapsBefore, press.firstTap, out);
    if (std::abs(dy) >= std::abs(dx)) {
      if (!target_.icon.empty())
        out.push_back(iconGesture(target_.icon, dy < 0 ? "swipeUp" : "swipeDown", press.start, 0));
    } else {
      TouchOutcome swipe;
      swipe.kind = TouchOutcome::Kind::pageSwipe;
      swipe.point = press.start;
      swipe.pageStep = dx < 0 ? 1 : -1;
      out.push_back(swipe);
    }
    return out;
  }

  int taps = press.tapsBefore + 1;
  if (taps < tapsCounted()) {
    pending_ = PendingTaps{press.firstTap, t, taps};
  } else {
    deliverTaps(taps, press.firstTap, out);
  }
  return out;
}

std::vector<TouchOutcome> TouchClassifier::cancel() {
  press_.reset();
  return {};
}

std::vector<TouchOutcome> TouchClassifier::poll(double t) {
  std::vector<TouchOutcome> out;
  if (press_ && !press_->longSent && !press_->wandered && t - press_->downAt >= kLongPress) {
    press_->longSent = true;
    if (auto outcome = longPress()) out.push_back(*outcome);
  }
  if (pending_ && t - pending_->upAt > kMultiTapWindow) {
    deliverTaps(pending_->taps, pending_->point, out);
    pending_.reset();
  }
  return out;
}

}  // namespace tessel::cli::serve
