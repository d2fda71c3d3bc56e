#pragma once

#include <cairo.h>

#include "host/geometry.h"

namespace tessel::render {

// The on-screen keyboard in its frame: a light tray with three rows of
// letter keys and a row with the space bar.
void paintKeyboard(cairo_t* cr, const host::Rect& frame);

}  // namespace tessel::render
