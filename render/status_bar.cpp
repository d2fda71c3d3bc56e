#include "render/status_bar.h"

#include <cmath>

#include "render/shapes.h"

namespace tessel::render {
namespace {

void paintSignal(cairo_t* cr, double left, double middle) {
  // Five dots, four of them filled.
  const double radius = 2.75, pitch = 6.5;
  for (int i = 0; i < 5; ++i) {
    cairo_new_sub_path(cr);
    cairo_arc(cr, left + radius + i * pitch, middle, i < 4 ? radius : radius - 0.5, 0, 2 * M_PI);
    if (i < 4) {
      cairo_fill(cr);
    } else {
      cairo_set_line_width(cr, 1);
      cairo_stroke(cr);
    }
  }
}

void paintBattery(cairo_t* cr, double right, double middle) {
  const double width = 24, height = 11;
  host::Rect body{right - width - 2.5, middle - height / 2, width, height};
  cairo_set_line_width(cr, 1);
  roundedRectangle(cr, {body.x + 0.5, body.y + 0.5, body.width - 1, body.height - 1}, 3);
  cairo_stroke(cr);
  roundedRectangle(cr, {body.x + 2, body.y + 2, (body.width - 4) * 0.8, body.height - 4}, 1.5);
  cairo_fill(cr);
  // The terminal cap.
  roundedRectangle(cr, {body.x + width + 1, middle - 2, 1.5, 4}, 0.75);
  cairo_fill(cr);
}

}  // namespace

void paintStatusBar(cairo_t* cr, TextPainter& text, const host::Size& screen) {
  const double height = 20, middle = height / 2;
  TextStyle clock;
  clock.size = 12;
  clock.weight = PANGO_WEIGHT_SEMIBOLD;
  clock.color = host::Color::whiteColor();
  clock.align = TextStyle::Align::center;
  text.draw("9:41", {0, 0, screen.width, height}, clock);

  cairo_save(cr);
  cairo_set_source_rgb(cr, 1, 1, 1);
  paintSignal(cr, 7, middle);
  paintBattery(cr, screen.width - 6, middle);
  cairo_restore(cr);
}

}  // namespace tessel::render
