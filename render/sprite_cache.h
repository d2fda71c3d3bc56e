#pragma once

#include <cairo.h>

#include <functional>
#include <string>

#include "host/geometry.h"

namespace tessel::render {

// Paints what `draw` draws inside `area` (user space of `cr`) from a
// picture made once at the device's resolution and kept under `key` for
// later frames.
void paintCached(cairo_t* cr, const std::string& key, const host::Rect& area, double opacity,
                 const std::function<void(cairo_t*)>& draw);

}  // namespace tessel::render
