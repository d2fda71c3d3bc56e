#pragma once

#include <memory>
#include <string>

#include "host/geometry.h"
#include "sim/sim_gesture_recognizer.h"

namespace tessel::sim {

class SimHost;
class SimTableView;

// A finger on the screen, as the toolkit turns it into actions.

// A tap at a point of the key window: the frontmost view there that takes
// touches decides. A button sends its touch-up-inside actions, a table row
// tells the table's delegate, a home-screen icon launches its application
// (not while editing). Returns what took the tap ("button", "row", "icon")
// or "" when nothing did.
std::string tapAt(SimHost& host, const host::Point& windowPoint);

// The toolkit's test of whether a recognizer takes a gesture ("swipeUp",
// "swipeDown", "tap", "doubleTap", "tripleTap", "tapAndHold", "hold").
bool recognizes(const SimGestureRecognizer& recognizer, const std::string& gesture);

// A gesture on an icon's home-screen view: of the recognizers on the view
// that take it, the first attached recognizes. A swipe or tap sends its
// action now; a long press sends it when it begins (0.5 s after the finger
// goes down) and again when the finger lifts after `hold` seconds. A plain
// tap that no recognizer takes launches the icon's application unless the
// home screen is being edited. False when the icon or gesture is unknown.
// `pressedFor` says how long the finger has already been down when the
// gesture is made known (a live finger is known to hold only once it has):
// the long press's moments come that much sooner, none before now.
bool performGesture(SimHost& host, const std::string& identifier, const std::string& gesture, double hold,
                    double pressedFor = 0);

bool isKnownGesture(const std::string& gesture);

// The first recognizer attached to the icon's home-screen view that takes
// the gesture, or null.
std::shared_ptr<SimGestureRecognizer> recognizerTaking(SimHost& host, const std::string& identifier,
                                                       const std::string& gesture);

// The first table in the key window's tree (the open panel's list), or nothing.
std::shared_ptr<SimTableView> firstTableInWindow(SimHost& host);

// How long a finger must stay down before a long press begins.
inline constexpr double kLongPressBegins = 0.5;

}  // namespace tessel::sim
