#pragma once

#include <vector>

#include "phone/objc/runtime.h"

// Stand-ins for the host classes that the binding talks to, defined through
// the GNU runtime itself so that the binding is tested on a real runtime.
// They do what the binding relies on and nothing more.
namespace tessel::objc::gnu {

// Defines NSObject, UIView, SBIconView, UIGestureRecognizer, NSNotification
// and NSNotificationCenter. Once per process; later calls do nothing.
void installStandIns();

// A view's subviews, back to front.
std::vector<id> subviewsOf(id view);

// How many times an SBIconView's own layoutSubviews has run.
long layoutPassesOf(id iconView);

// Sends the recognizer's action to its target, with the recognizer as argument.
void fireGestureRecognizer(id recognizer);

}  // namespace tessel::objc::gnu
