#include "render/layer_stack.h"

namespace tessel::render {

void LayerStack::push(double alpha) {
  cairo_push_group(cr_);
  groups_.push_back({cairo_get_group_target(cr_), alpha});
}

void LayerStack::pop() {
  if (groups_.empty()) return;
  double alpha = groups_.back().alpha;
  groups_.pop_back();
  cairo_pop_group_to_source(cr_);
  cairo_paint_with_alpha(cr_, alpha);
}

PixelRect LayerStack::flattened(int x, int y, int width, int height) {
  PixelRect canvas = pixelsOf(canvas_);
  if (groups_.empty()) {
    return {canvas.pixels + std::size_t(y) * std::size_t(canvas.stride) + std::size_t(x), width, height, canvas.stride};
  }
  scratch_.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  cairo_t* cr = cairo_create(scratch_.get());
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cr, canvas_, -x, -y);
  cairo_paint(cr);
  cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
  for (const Group& group : groups_) {
    // A group's surface carries a device offset that puts it where it
    // stands on the canvas.
    cairo_set_source_surface(cr, group.surface, -x, -y);
    cairo_paint_with_alpha(cr, group.alpha);
  }
  cairo_destroy(cr);
  return pixelsOf(scratch_.get());
}

}  // namespace tessel::render
