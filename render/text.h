#pragma once

#include <cairo.h>
#include <pango/pango.h>

#include <string>

#include "host/color.h"
#include "host/geometry.h"

namespace tessel::render {

struct TextStyle {
  enum class Align { left, center, right };
  enum class Vertical { center, top, bottom };
  double size = 17;
  host::Color color = host::Color::blackColor();
  PangoWeight weight = PANGO_WEIGHT_NORMAL;
  Align align = Align::left;
  Vertical vertical = Vertical::center;
  // Shrinks the font until one line fits the box's width.
  bool shrinkToFit = false;
  // Lines before the rest is cut with an ellipsis; 0 for as many as fit.
  int lines = 1;
};

// Lays out and draws text the way a label does: within its box (centred
// vertically unless the style says otherwise), in "Inter" (or "DejaVu Sans"
// where Inter lacks a glyph). Layout does not depend on the drawing scale,
// so a picture at 3× breaks its lines where one at 1× does.
class TextPainter {
 public:
  explicit TextPainter(cairo_t* cr) : cr_(cr) {}

  void draw(const std::string& text, const host::Rect& box, const TextStyle& style);
  // The size of `text` on one line.
  host::Size measure(const std::string& text, const TextStyle& style);
  // The height of one line at that style.
  double lineHeight(const TextStyle& style);

 private:
  cairo_t* cr_;
};

}  // namespace tessel::render
