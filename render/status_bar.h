#pragma once

#include <cairo.h>

#include "host/geometry.h"
#include "render/text.h"

namespace tessel::render {

// The status bar across the top of the screen: the time, signal and battery.
void paintStatusBar(cairo_t* cr, TextPainter& text, const host::Size& screen);

}  // namespace tessel::render
