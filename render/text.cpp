#include "render/text.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace tessel::render {
namespace {

struct LayoutDeleter {
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};
using LayoutHandle = std::unique_ptr<PangoLayout, LayoutDeleter>;

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

}  // namespace

TextPainter::TextPainter(cairo_t* cr) : cr_(cr), context_(pango_cairo_create_context(cr)) {
  // Unhinted outlines and metrics: glyph positions scale exactly with the
  // picture, and the same scene breaks its lines the same way at any scale.
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  pango_cairo_context_set_font_options(context_, options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(context_, FALSE);
}

TextPainter::~TextPainter() { g_object_unref(context_); }

PangoLayout* TextPainter::layout(const std::string& text, const TextStyle& style, double size) {
  PangoLayout* layout = pango_layout_new(context_);
  PangoFontDescription* font = pango_font_description_from_string("Inter, DejaVu Sans");
  pango_font_description_set_absolute_size(font, std::max(size, 0.5) * PANGO_SCALE);
  pango_font_description_set_weight(font, style.weight);
  pango_layout_set_font_description(layout, font);
  pango_font_description_free(font);
  pango_layout_set_text(layout, text.c_str(), int(text.size()));
  pango_layout_set_alignment(layout, pangoAlignment(style.align));
  return layout;
}

host::Size TextPainter::measure(const std::string& text, const TextStyle& style) {
  LayoutHandle handle(layout(text, style, style.size));
  PangoRectangle logical;
  pango_layout_get_extents(handle.get(), nullptr, &logical);
  return {double(logical.width) / PANGO_SCALE, double(logical.height) / PANGO_SCALE};
}

double TextPainter::lineHeight(const TextStyle& style) { return measure("Ag", style).height; }

void TextPainter::draw(const std::string& text, const host::Rect& box, const TextStyle& style) {
  if (text.empty() || !(box.width > 0) || !(box.height > 0) || style.color.alpha <= 0) return;
  double size = style.size;
  if (style.shrinkToFit) {
    double width = measure(text, style).width;
    if (width > box.width) size = std::max(size * box.width / width, 1.0);
  }
  LayoutHandle handle(layout(text, style, size));
  PangoLayout* l = handle.get();
  pango_layout_set_width(l, int(box.width * PANGO_SCALE));
  pango_layout_set_ellipsize(l, PANGO_ELLIPSIZE_END);
  pango_layout_set_wrap(l, PANGO_WRAP_WORD_CHAR);
  if (style.lines > 0) {
    pango_layout_set_height(l, -style.lines);
  } else {
    pango_layout_set_height(l, int(box.height * PANGO_SCALE));
  }
  PangoRectangle logical;
  pango_layout_get_extents(l, nullptr, &logical);
  double height = double(logical.height) / PANGO_SCALE;

  cairo_save(cr_);
  pango_cairo_update_context(cr_, context_);
  pango_layout_context_changed(l);
  cairo_set_source_rgba(cr_, style.color.red, style.color.green, style.color.blue, style.color.alpha);
  double top = box.y + (box.height - height) / 2;
  if (style.vertical == TextStyle::Vertical::top) top = box.y;
  if (style.vertical == TextStyle::Vertical::bottom) top = box.y + box.height - height;
  cairo_move_to(cr_, box.x, top);
  pango_cairo_show_layout(cr_, l);
  cairo_restore(cr_);
}

}  // namespace tessel::render
