#pragma once

#include "host/view.h"

namespace tessel {

// Moves a view vertically by `dy` from its current frame, keeping x, width
// and height.
inline void moveViewVertically(const host::Ref<host::View>& view, double dy) {
  host::Rect frame = view->frame();
  frame.y += dy;
  view->setFrame(frame);
}

}  // namespace tessel
