#pragma once

#include <cairo.h>

#include <memory>

#include "render/blur.h"
#include "render/render.h"

namespace tessel::render {

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

struct ContextDeleter {
  void operator()(cairo_t* cr) const { cairo_destroy(cr); }
};
using Context = std::unique_ptr<cairo_t, ContextDeleter>;

// A premultiplied ARGB32 surface holding the picture's pixels.
Surface surfaceFromPicture(const Picture& picture);

// A surface that draws straight into the picture's bytes, sized to its
// width and height, as premultiplied ARGB words; null when cairo cannot lay
// out its rows without padding.
Surface surfaceOverPicture(Picture& picture);

// Turns the premultiplied ARGB words drawn into a picture into straight
// RGBA bytes, in place.
void straightenInPlace(Picture& picture);

// The surface's pixels, for reading and writing in place (after a flush;
// mark the surface dirty after writing).
PixelRect pixelsOf(cairo_surface_t* surface);

}  // namespace tessel::render
