#include "render/keyboard.h"

#include <algorithm>
#include <array>

#include "render/shapes.h"

namespace tessel::render {

void paintKeyboard(cairo_t* cr, const host::Rect& frame) {
  if (frame.width <= 0 || frame.height <= 0) return;
  cairo_save(cr);
  cairo_rectangle(cr, frame.x, frame.y, frame.width, frame.height);
  cairo_set_source_rgb(cr, 0.82, 0.83, 0.86);
  cairo_fill(cr);

  // Key rows as a phone lays them out: 10, 9 and 7 letters, then the space row.
  constexpr std::array<int, 3> kLetters = {10, 9, 7};
  const double gap = frame.width * 0.016;
  const double keyWidth = (frame.width - gap * 11) / 10;
  const double rowHeight = std::min(frame.height / 4.6, keyWidth * 1.45);
  const double keyHeight = rowHeight - gap * 2.2;
  double y = frame.y + gap * 2.5;
  for (int count : kLetters) {
    double rowWidth = count * keyWidth + (count - 1) * gap;
    double x = frame.x + (frame.width - rowWidth) / 2;
    for (int i = 0; i < count; ++i) {
      roundedRectangle(cr, {x + i * (keyWidth + gap), y, keyWidth, keyHeight}, 5);
    }
    y += rowHeight;
  }
  double sideWidth = keyWidth * 2.4;
  roundedRectangle(cr, {frame.x + gap * 2 + sideWidth, y, frame.width - 2 * (sideWidth + gap * 3), keyHeight}, 5);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_fill(cr);
  roundedRectangle(cr, {frame.x + gap, y, sideWidth, keyHeight}, 5);
  roundedRectangle(cr, {frame.x + frame.width - gap - sideWidth, y, sideWidth, keyHeight}, 5);
  cairo_set_source_rgb(cr, 0.67, 0.69, 0.73);
  cairo_fill(cr);
  cairo_restore(cr);
}

}  // namespace tessel::render
