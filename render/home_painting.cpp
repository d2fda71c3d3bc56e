// The home screen's own views: icons with their names, the dock's glass
// and an open folder's background.

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "render/backdrop.h"
#include "render/color_text.h"
#include "render/icon_art.h"
#include "render/image_surface.h"
#include "render/shapes.h"
#include "render/sprite_cache.h"
#include "render/view_painter.h"
#include "sim/home_screen.h"
#include "sim/icon_art.h"
#include "sim/sim_folder.h"
#include "sim/sim_icon_view.h"
#include "sim/world_config.h"

namespace tessel::render {

namespace {

// What an icon shows: its application's name and colour, or for a web clip
// what the scenario says of its identifier.
IconArt artFor(const sim::SimIcon& icon, const sim::WorldConfig* config) {
  IconArt art;
  std::string identifier = icon.app() ? icon.app()->identifier() : icon.displayIdentifier();
  if (icon.app()) {
    art.name = icon.app()->name();
    art.color = icon.app()->color();
  }
  if (config) {
    auto found = config->apps.find(identifier);
    if (found != config->apps.end()) {
      if (art.name.empty()) art.name = found->second.name;
      if (!icon.app()) art.color = sim::parseHexColor(found->second.color).value_or(art.color);
      // The host loaded the scenario's PNG as the icon's image.
      if (!found->second.iconPath.empty() && icon.image()) art.picture = surfaceForImage(icon.image());
    }
  }
  if (art.name.empty()) art.name = icon.displayName().empty() ? identifier : icon.displayName();
  return art;
}

std::string labelFor(const sim::SimIcon& icon, const IconArt& art) {
  return icon.displayName().empty() ? art.name : icon.displayName();
}

std::string keyOf(const IconArt& art) {
  char colour[64];
  std::snprintf(colour, sizeof colour, "%.4f,%.4f,%.4f,%.4f", art.color.red, art.color.green, art.color.blue,
                art.color.alpha);
  return art.name + "|" + colour;
}

}  // namespace

void ViewPainter::paintIconView(const sim::SimIconView& view, const host::Rect& bounds, double opacity) {
  const auto& icon = view.simIcon();
  if (!icon) return;
  // The picture stands where the icon view's image view stands.
  const auto& picture = view.imageView();
  host::Rect square = picture ? picture->presentationFrame(setting_.time) : host::Rect{0, 0, 60, 60};
  IconArt art = artFor(*icon, setting_.config);
  auto folder = icon->folder();
  // Faces and names are the same frame after frame: each is drawn once and
  // then copied.
  if (folder || icon->isKindOf("SBFolderIcon")) {
    std::vector<IconArt> contents;
    std::string key = "folder";
    if (folder) {
      for (const auto& list : folder->lists())
        for (const auto& inner : list->icons())
          if (inner) contents.push_back(artFor(*inner, setting_.config));
      art.name = folder->name();
    }
    for (const auto& inner : contents) key += "/" + keyOf(inner);
    paintCached(cr_, key, square, opacity, [&](cairo_t* cr) { paintFolderIcon(cr, square, contents); });
  } else if (art.picture) {
    // A scenario's own picture is drawn afresh: the pixels it came from
    // may be gone by the next frame, and its address reused.
    cairo_push_group(cr_);
    paintAppIcon(cr_, text_, square, art);
    cairo_pop_group_to_source(cr_);
    cairo_paint_with_alpha(cr_, opacity);
  } else {
    paintCached(cr_, "app/" + keyOf(art), square, opacity, [&](cairo_t* cr) {
      TextPainter text(cr);
      paintAppIcon(cr, text, square, art);
    });
  }
  double labelAlpha = std::clamp(view.labelAlpha(), 0.0, 1.0) * opacity;
  if (labelAlpha < kInvisible) return;
  std::string label = labelFor(*icon, art);
  double squareBottom = square.y + square.height;
  host::Rect area = iconLabelArea(bounds, squareBottom);
  paintCached(cr_, "name/" + label + "/" + std::to_string(bounds.width), {area.x, area.y, area.width, area.height},
              labelAlpha, [&](cairo_t* cr) {
                TextPainter text(cr);
                paintIconLabel(text, bounds, squareBottom, label, 1);
              });
}

void ViewPainter::paintDockStrip(const host::Rect& bounds, double opacity) {
  paintFrost(cr_, layers_, bounds, setting_.scale, lightFrost(), opacity);
}

void ViewPainter::paintFolderBackground(const host::Rect& bounds, double opacity) {
  // The whole screen behind an open folder is blurred and dimmed.
  cairo_save(cr_);
  cairo_identity_matrix(cr_);
  cairo_scale(cr_, setting_.scale, setting_.scale);
  host::Size screen{setting_.config ? setting_.config->screen.width : 0,
                    setting_.config ? setting_.config->screen.height : 0};
  paintFrost(cr_, layers_, {0, 0, screen.width, screen.height}, setting_.scale, {8, {0, 0, 0, 0.25}}, opacity);
  cairo_restore(cr_);

  cairo_save(cr_);
  roundedRectangle(cr_, {-6, -6, bounds.width + 12, bounds.height + 12}, 30);
  cairo_clip(cr_);
  paintFrost(cr_, layers_, {-6, -6, bounds.width + 12, bounds.height + 12}, setting_.scale, lightFrost(), opacity);
  cairo_restore(cr_);

  if (setting_.home) {
    TextStyle title;
    title.size = 28;
    title.weight = PANGO_WEIGHT_SEMIBOLD;
    title.align = TextStyle::Align::center;
    title.color = {1, 1, 1, opacity};
    text_.draw(setting_.home->openFolderName(), {0, -58, bounds.width, 40}, title);
  }
}

}  // namespace tessel::render
