#pragma once

#include <cairo.h>

#include "host/color.h"
#include "host/geometry.h"

namespace tessel::render {

// Adds a rectangle with rounded corners to the current path.
void roundedRectangle(cairo_t* cr, const host::Rect& rect, double radius);

void setColor(cairo_t* cr, const host::Color& color);

}  // namespace tessel::render
