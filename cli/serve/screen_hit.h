#pragma once

#include <string>

#include "cli/serve/touch_classifier.h"
#include "host/geometry.h"

namespace tessel::sim {
class SimHost;
}

namespace tessel::cli::serve {

// What the key window shows at a point, found as the toolkit finds the view
// that a finger touches: the frontmost view there, then its superviews.
struct ScreenHit {
  enum class Kind { nothing, button, row, icon, folderIcon };
  Kind kind = Kind::nothing;
  std::string icon;    // the icon's identifier (an application's bundle identifier)
  std::string folder;  // the folder a folder icon stands for
};

ScreenHit hitAt(sim::SimHost& host, const host::Point& windowPoint);

// The icon at a point, with the gestures its recognizers take, for a finger
// that goes down there. A panel's dismiss button over the icon hides it.
TouchTarget touchTargetAt(sim::SimHost& host, const host::Point& windowPoint);

}  // namespace tessel::cli::serve
