#include "render/text_layouts.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <map>

namespace tessel::render {
namespace {

// One context for every picture: unhinted outlines and metrics, so glyph
// positions scale exactly with the picture and the same scene breaks its
// lines the same way at any scale.
PangoContext* sharedContext() {
  static PangoContext* context = [] {
    PangoContext* made = pango_font_map_create_context(pango_cairo_font_map_get_default());
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(made, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(made, FALSE);
    return made;
  }();
  return context;
}

PangoLayout* makeLayout(const LayoutRequest& r) {
  PangoLayout* layout = pango_layout_new(sharedContext());
  PangoFontDescription* font = pango_font_description_from_string("Inter, DejaVu Sans");
  pango_font_description_set_absolute_size(font, std::max(r.size, 0.5) * PANGO_SCALE);
  pango_font_description_set_weight(font, r.weight);
  pango_layout_set_font_description(layout, font);
  pango_font_description_free(font);
  pango_layout_set_text(layout, r.text.c_str(), int(r.text.size()));
  pango_layout_set_alignment(layout, r.alignment);
  if (r.width > 0) {
    pango_layout_set_width(layout, int(r.width * PANGO_SCALE));
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
    pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
    pango_layout_set_height(layout, r.lines > 0 ? -r.lines : int(r.height * PANGO_SCALE));
  }
  return layout;
}

struct Entry {
  PangoLayout* layout;
  host::Size size;
};

}  // namespace

LaidOut layoutFor(const LayoutRequest& request) {
  static std::map<LayoutRequest, Entry> cache;
  auto found = cache.find(request);
  if (found == cache.end()) {
    // A bound on what is kept; a new run of pictures soon fills it again.
    if (cache.size() >= 4096) {
      for (auto& [key, entry] : cache) g_object_unref(entry.layout);
      cache.clear();
    }
    PangoLayout* layout = makeLayout(request);
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    found = cache
                .emplace(request,
                         Entry{layout, {double(logical.width) / PANGO_SCALE, double(logical.height) / PANGO_SCALE}})
                .first;
  }
  return {found->second.layout, found->second.size};
}

}  // namespace tessel::render
