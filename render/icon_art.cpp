#include "render/icon_art.h"

#include <algorithm>

#include "render/color_text.h"
#include "render/shapes.h"

namespace tessel::render {
namespace {

constexpr double kCornerFraction = 0.225;

host::Color mix(const host::Color& a, const host::Color& b, double t) {
  return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t, a.blue + (b.blue - a.blue) * t,
          a.alpha + (b.alpha - a.alpha) * t};
}

std::string initialOf(const std::string& name) {
  if (name.empty()) return "?";
  // One whole UTF-8 character.
  std::size_t length = 1;
  while (length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) ++length;
  return name.substr(0, length);
}

void paintFace(cairo_t* cr, TextPainter& text, const host::Rect& square, const IconArt& art) {
  // A faint top-to-bottom sheen, as icons usually have.
  cairo_pattern_t* face = cairo_pattern_create_linear(0, square.y, 0, square.y + square.height);
  host::Color top = mix(art.color, host::Color::whiteColor(), 0.18);
  host::Color bottom = mix(art.color, host::Color::blackColor(), 0.08);
  cairo_pattern_add_color_stop_rgb(face, 0, top.red, top.green, top.blue);
  cairo_pattern_add_color_stop_rgb(face, 1, bottom.red, bottom.green, bottom.blue);
  cairo_set_source(cr, face);
  roundedRectangle(cr, square, square.width * kCornerFraction);
  cairo_fill(cr);
  cairo_pattern_destroy(face);

  TextStyle initial;
  initial.size = square.height * 0.5;
  initial.weight = PANGO_WEIGHT_SEMIBOLD;
  initial.align = TextStyle::Align::center;
  // White reads on every face but the palest; those get a dark letter.
  initial.color = luminance(art.color) > 0.8 ? host::Color{0.25, 0.25, 0.28, 1} : host::Color::whiteColor();
  text.draw(initialOf(art.name), square, initial);
}

}  // namespace

void paintAppIcon(cairo_t* cr, TextPainter& text, const host::Rect& square, const IconArt& art) {
  if (!(square.width > 0) || !(square.height > 0)) return;
  cairo_surface_t* image = art.picture;
  if (!image) {
    paintFace(cr, text, square, art);
    return;
  }
  double width = cairo_image_surface_get_width(image);
  double height = cairo_image_surface_get_height(image);
  cairo_save(cr);
  roundedRectangle(cr, square, square.width * kCornerFraction);
  cairo_clip(cr);
  cairo_translate(cr, square.x, square.y);
  cairo_scale(cr, square.width / width, square.height / height);
  cairo_set_source_surface(cr, image, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_GOOD);
  cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
  cairo_paint(cr);
  cairo_restore(cr);
}

void paintFolderIcon(cairo_t* cr, const host::Rect& square, const std::vector<IconArt>& contents) {
  if (!(square.width > 0) || !(square.height > 0)) return;
  cairo_save(cr);
  cairo_set_source_rgba(cr, 0.85, 0.85, 0.9, 0.45);
  roundedRectangle(cr, square, square.width * kCornerFraction);
  cairo_fill(cr);
  double inset = square.width * 0.14;
  double gap = square.width * 0.05;
  double cell = (square.width - 2 * inset - 2 * gap) / 3;
  for (std::size_t i = 0; i < std::min<std::size_t>(contents.size(), 9); ++i) {
    double x = square.x + inset + double(i % 3) * (cell + gap);
    double y = square.y + inset + double(i / 3) * (cell + gap);
    setColor(cr, contents[i].color);
    roundedRectangle(cr, {x, y, cell, cell}, cell * kCornerFraction);
    cairo_fill(cr);
  }
  cairo_restore(cr);
}

namespace {

constexpr double kLabelSlack = 10;
constexpr double kLabelHeight = 14;
constexpr double kShadowDrop = 0.75;

host::Rect labelBox(const host::Rect& bounds, double squareBottom) {
  return {bounds.x - kLabelSlack, bounds.y + squareBottom + 2, bounds.width + 2 * kLabelSlack, kLabelHeight};
}

}  // namespace

host::Rect iconLabelArea(const host::Rect& bounds, double squareBottom) {
  host::Rect box = labelBox(bounds, squareBottom);
  return {box.x, box.y, box.width, box.height + 1};
}

void paintIconLabel(TextPainter& text, const host::Rect& bounds, double squareBottom, const std::string& label,
                    double alpha) {
  TextStyle style;
  style.size = 12;
  style.align = TextStyle::Align::center;
  host::Rect box = labelBox(bounds, squareBottom);
  // A soft shadow keeps white names legible on a light wallpaper.
  style.color = {0, 0, 0, 0.35 * alpha};
  text.draw(label, {box.x, box.y + kShadowDrop, box.width, box.height}, style);
  style.color = {1, 1, 1, alpha};
  text.draw(label, box, style);
}

}  // namespace tessel::render
