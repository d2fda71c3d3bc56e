#pragma once

#include <cairo.h>

#include <vector>

#include "render/surface.h"

namespace tessel::render {

// The picture being drawn and the translucent groups opened on top of it
// (a view with alpha below 1 is drawn into a group, then blended in).
class LayerStack {
 public:
  LayerStack(cairo_t* cr, cairo_surface_t* canvas) : cr_(cr), canvas_(canvas) {}

  void push(double alpha);
  void pop();

  // What the picture would show inside a rectangle of device pixels if
  // every open group were blended in now: the pixels that a blur behind a
  // view sees. Reads the canvas in place when no group is open; the copy
  // otherwise lives until the next call.
  PixelRect flattened(int x, int y, int width, int height);

  cairo_surface_t* canvas() const { return canvas_; }

 private:
  struct Group {
    cairo_surface_t* surface;
    double alpha;
  };
  cairo_t* cr_;
  cairo_surface_t* canvas_;
  std::vector<Group> groups_;
  Surface scratch_;
};

}  // namespace tessel::render
