#include "render/text.h"

#include <pango/pangocairo.h>

#include <algorithm>

#include "render/text_layouts.h"

namespace tessel::render {
namespace {

PangoAlignment pangoAlignment(TextStyle::Align align) {
  switch (align) {
    case TextStyle::Align::center:
      return PANGO_ALIGN_CENTER;
    case TextStyle::Align::right:
      return PANGO_ALIGN_RIGHT;
    case TextStyle::Align::left:
      break;
  }
  return PANGO_ALIGN_LEFT;
}

LayoutRequest oneLine(const std::string& text, const TextStyle& style, double size) {
  LayoutRequest request;
  request.text = text;
  request.size = size;
  request.weight = style.weight;
  return request;
}

}  // namespace

host::Size TextPainter::measure(const std::string& text, const TextStyle& style) {
  return layoutFor(oneLine(text, style, style.size)).size;
}

double TextPainter::lineHeight(const TextStyle& style) { return measure("Ag", style).height; }

void TextPainter::draw(const std::string& text, const host::Rect& box, const TextStyle& style) {
  if (text.empty() || !(box.width > 0) || !(box.height > 0) || style.color.alpha <= 0) return;
  LayoutRequest request = oneLine(text, style, style.size);
  if (style.shrinkToFit) {
    double width = measure(text, style).width;
    if (width > box.width) request.size = std::max(style.size * box.width / width, 1.0);
  }
  request.alignment = pangoAlignment(style.align);
  request.width = box.width;
  request.lines = std::max(style.lines, 0);
  request.height = box.height;
  LaidOut laid = layoutFor(request);

  double top = box.y + (box.height - laid.size.height) / 2;
  if (style.vertical == TextStyle::Vertical::top) top = box.y;
  if (style.vertical == TextStyle::Vertical::bottom) top = box.y + box.height - laid.size.height;
  cairo_save(cr_);
  cairo_set_source_rgba(cr_, style.color.red, style.color.green, style.color.blue, style.color.alpha);
  cairo_move_to(cr_, box.x, top);
  pango_cairo_show_layout(cr_, laid.layout);
  cairo_restore(cr_);
}

}  // namespace tessel::render
