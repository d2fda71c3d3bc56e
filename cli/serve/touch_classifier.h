#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/geometry.h"

namespace tessel::cli::serve {

// What lies under a finger when it first goes down.
struct TouchTarget {
  std::string icon;             // the home-screen icon there, or ""
  std::set<std::string> takes;  // the icon's gestures that a recognizer takes ("doubleTap", …)
};

// What a finger did, once it is known.
struct TouchOutcome {
  enum class Kind {
    tap,          // one tap at `point`: the host's hit test decides
    iconGesture,  // `gesture` on `icon`, held for `hold` seconds
    pageSwipe,    // a sideways swipe: `pageStep` pages on (+1) or back (-1)
  };
  Kind kind = Kind::tap;
  host::Point point;
  std::string icon;
  std::string gesture;
  double hold = 0;
  int pageStep = 0;

  bool operator==(const TouchOutcome&) const = default;
};

// Turns one finger's downs, moves and ups, with their times in seconds, into
// the gestures a person means: a press that travels far is a swipe; a short
// press is a tap, and taps that follow quickly at the same place add up to a
// double or triple tap when the icon there counts taps; a press that stays
// is a long press, after a tap a tap-and-hold. An icon that counts no taps
// gets each tap at once; otherwise a tap waits for the next one.
class TouchClassifier {
 public:
  using Lookup = std::function<TouchTarget(const host::Point&)>;

  static constexpr double kSwipeDistance = 24;     // points
  static constexpr double kTapSlop = 10;           // points a still finger may wander
  static constexpr double kMultiTapWindow = 0.35;  // seconds between one tap's up and the next down
  static constexpr double kLongPress = 0.5;        // seconds down before a press is long

  std::vector<TouchOutcome> down(const host::Point& point, double t, const Lookup& lookup);
  std::vector<TouchOutcome> move(const host::Point& point, double t);
  std::vector<TouchOutcome> up(const host::Point& point, double t);
  // The finger left the screen without a gesture (the page lost it).
  std::vector<TouchOutcome> cancel();
  // What the passing of time decides: a press turning long, taps no longer
  // followed by another.
  std::vector<TouchOutcome> poll(double t);
  bool fingerDown() const { return press_.has_value(); }

 private:
  struct Press {
    host::Point start;
    host::Point firstTap;  // where the taps before this press began
    host::Point last;
    double downAt = 0;
    int tapsBefore = 0;
    bool wandered = false;
    bool longSent = false;
  };
  struct PendingTaps {
    host::Point point;
    double upAt = 0;
    int taps = 0;
  };

  int tapsCounted() const;
  void deliverTaps(int taps, const host::Point& point, std::vector<TouchOutcome>& out) const;
  std::optional<TouchOutcome> longPress() const;

  TouchTarget target_;
  std::optional<Press> press_;
  std::optional<PendingTaps> pending_;
};

}  // namespace tessel::cli::serve
