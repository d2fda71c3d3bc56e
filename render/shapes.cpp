#include "render/shapes.h"

#include <algorithm>
#include <cmath>

namespace tessel::render {

void roundedRectangle(cairo_t* cr, const host::Rect& rect, double radius) {
  double r = std::clamp(radius, 0.0, std::min(rect.width, rect.height) / 2);
  double left = rect.x, top = rect.y, right = rect.x + rect.width, bottom = rect.y + rect.height;
  cairo_new_sub_path(cr);
  cairo_arc(cr, right - r, top + r, r, -M_PI / 2, 0);
  cairo_arc(cr, right - r, bottom - r, r, 0, M_PI / 2);
  cairo_arc(cr, left + r, bottom - r, r, M_PI / 2, M_PI);
  cairo_arc(cr, left + r, top + r, r, M_PI, 3 * M_PI / 2);
  cairo_close_path(cr);
}

void setColor(cairo_t* cr, const host::Color& color) {
  cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.alpha);
}

}  // namespace tessel::render
