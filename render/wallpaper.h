#pragma once

#include <cairo.h>

#include <string>

#include "host/geometry.h"

namespace tessel::render {

// The wallpaper as a picture of `width` × `height` pixels for a screen of
// `screen` points: the PNG at `path` scaled to cover the screen and
// centred, or, without one (or when it cannot be read), a default dusk
// gradient. Kept for the next picture of the same size.
cairo_surface_t* wallpaper(const host::Size& screen, const std::string& path, int width, int height);

}  // namespace tessel::render
