#include "render/view_painter.h"

#include <algorithm>

#include "render/backdrop.h"
#include "render/color_text.h"
#include "render/icon_art.h"
#include "render/image_surface.h"
#include "render/shapes.h"
#include "sim/home_screen.h"
#include "sim/sim_backdrop_view.h"
#include "sim/sim_folder.h"
#include "sim/sim_icon_list_view.h"
#include "sim/sim_icon_view.h"
#include "sim/sim_image_view.h"
#include "sim/sim_label.h"
#include "sim/sim_layer.h"
#include "sim/sim_table_view_cell.h"
#include "sim/world_config.h"

namespace tessel::render {
namespace {

// Below half of one 8-bit step nothing of a view would show.
constexpr double kInvisible = 0.5 / 255;

bool clipIsEmpty(cairo_t* cr) {
  double x0, y0, x1, y1;
  cairo_clip_extents(cr, &x0, &y0, &x1, &y1);
  return x1 <= x0 || y1 <= y0;
}

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
      if (!icon.app()) art.color = parseHexColor(found->second.color).value_or(art.color);
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

// A subtitle cell's two labels sit together around the line where the
// title's frame meets the subtitle's, as the toolkit draws them.
TextStyle::Vertical verticalPlace(const sim::SimLabel& label) {
  const sim::SimView* content = label.parent();
  const auto* cell = content ? dynamic_cast<const sim::SimTableViewCell*>(content->parent()) : nullptr;
  if (!cell || cell->style() != sim::SimTableViewCell::kStyleSubtitle) return TextStyle::Vertical::center;
  if (cell->titleLabel().get() == &label) return TextStyle::Vertical::bottom;
  if (cell->subtitleLabel().get() == &label) return TextStyle::Vertical::top;
  return TextStyle::Vertical::center;
}

}  // namespace

ViewPainter::ViewPainter(cairo_t* cr, LayerStack& layers, TextPainter& text, const Setting& setting)
    : cr_(cr), layers_(layers), text_(text), setting_(setting) {}

void ViewPainter::paint(const sim::SimView& view) {
  if (view.hidden()) return;
  double alpha = std::clamp(view.presentationAlpha(setting_.time), 0.0, 1.0);
  if (alpha < kInvisible) return;
  host::Rect frame = view.presentationFrame(setting_.time);
  host::Rect bounds{0, 0, frame.width, frame.height};

  cairo_save(cr_);
  cairo_translate(cr_, frame.x, frame.y);
  // Scroll views (tables among them) clip their content, as the toolkit's do.
  if (view.clipsToBounds() || view.isKindOf("UIScrollView")) {
    cairo_rectangle(cr_, 0, 0, bounds.width, bounds.height);
    cairo_clip(cr_);
  }
  if (!applyMask(view) || clipIsEmpty(cr_)) {
    cairo_restore(cr_);
    return;
  }
  // A lone view blends its own drawing; a subtree is drawn whole first,
  // so that overlapping children do not show through one another.
  bool group = alpha < 1 && !view.children().empty();
  if (group) layers_.push(alpha);
  paintContent(view, bounds, group ? 1 : alpha);
  const auto* iconView = dynamic_cast<const sim::SimIconView*>(&view);
  paintChildren(view, iconView ? iconView->imageView().get() : nullptr);
  if (group) layers_.pop();
  cairo_restore(cr_);
}

bool ViewPainter::applyMask(const sim::SimView& view) {
  auto mask = view.maskLayer();
  if (!mask) return true;
  host::Path path = mask->path();
  if (path.elements.empty()) return false;
  host::Rect place = mask->frame();
  cairo_save(cr_);
  cairo_translate(cr_, place.x, place.y);
  cairo_new_path(cr_);
  for (const auto& element : path.elements) {
    switch (element.op) {
      case host::Path::Op::moveTo:
        cairo_move_to(cr_, element.point.x, element.point.y);
        break;
      case host::Path::Op::lineTo:
        cairo_line_to(cr_, element.point.x, element.point.y);
        break;
      case host::Path::Op::close:
        cairo_close_path(cr_);
        break;
    }
  }
  cairo_restore(cr_);
  // The path keeps the coordinates it was built in; the clip is anti-aliased.
  cairo_set_fill_rule(cr_, CAIRO_FILL_RULE_WINDING);
  cairo_clip(cr_);
  return true;
}

void ViewPainter::paintChildren(const sim::SimView& view, const sim::SimView* skip) {
  for (const auto& child : view.children()) {
    if (child && child.get() != skip) paint(*child);
  }
}

void ViewPainter::paintContent(const sim::SimView& view, const host::Rect& bounds, double opacity) {
  if (const auto& background = view.backgroundColor(); background && background->alpha > 0) {
    host::Color color = *background;
    color.alpha *= opacity;
    setColor(cr_, color);
    cairo_rectangle(cr_, 0, 0, bounds.width, bounds.height);
    cairo_fill(cr_);
  }
  if (const auto* backdrop = dynamic_cast<const sim::SimBackdropView*>(&view)) {
    paintFrost(cr_, layers_, bounds, setting_.scale, frostForBackdropStyle(backdrop->style()), opacity);
  } else if (const auto* image = dynamic_cast<const sim::SimImageView*>(&view)) {
    paintImage(*image, bounds, opacity);
  } else if (const auto* label = dynamic_cast<const sim::SimLabel*>(&view)) {
    paintLabel(*label, bounds, opacity);
  } else if (const auto* icon = dynamic_cast<const sim::SimIconView*>(&view)) {
    paintIconView(*icon, bounds);
  } else if (const auto* list = dynamic_cast<const sim::SimIconListView*>(&view)) {
    if (list->isKindOf("SBDockIconListView")) paintDockStrip(bounds);
    if (list->isKindOf("SBFolderIconListView")) paintFolderBackground(bounds);
  }
}

void ViewPainter::paintLabel(const sim::SimLabel& label, const host::Rect& bounds, double opacity) {
  host::String text = label.text();
  if (!text || text->empty()) return;
  TextStyle style;
  style.size = label.font().pointSize > 0 ? label.font().pointSize : 17;
  style.color = label.textColor();
  style.color.alpha *= opacity;
  style.shrinkToFit = label.adjustsFontSizeToFitWidth();
  style.lines = int(std::clamp<std::int64_t>(label.numberOfLines(), 0, 1000));
  style.vertical = verticalPlace(label);
  text_.draw(*text, bounds, style);
}

void ViewPainter::paintImage(const sim::SimImageView& view, const host::Rect& bounds, double opacity) {
  const sim::SimImage* image = view.simImage();
  if (!image || image->width() == 0 || image->height() == 0) return;
  if (auto uniform = image->uniformColor()) {
    host::Color color = *uniform;
    color.alpha *= opacity;
    setColor(cr_, color);
    cairo_rectangle(cr_, 0, 0, bounds.width, bounds.height);
    cairo_fill(cr_);
    return;
  }
  cairo_surface_t* surface = surfaceForImage(view.image().shared());
  if (!surface) return;
  cairo_save(cr_);
  cairo_rectangle(cr_, 0, 0, bounds.width, bounds.height);
  cairo_clip(cr_);
  cairo_scale(cr_, bounds.width / double(image->width()), bounds.height / double(image->height()));
  cairo_set_source_surface(cr_, surface, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cr_), CAIRO_FILTER_GOOD);
  // Enlarged edge pixels keep their colour instead of fading into nothing.
  cairo_pattern_set_extend(cairo_get_source(cr_), CAIRO_EXTEND_PAD);
  cairo_paint_with_alpha(cr_, opacity);
  cairo_restore(cr_);
}

void ViewPainter::paintIconView(const sim::SimIconView& view, const host::Rect& bounds) {
  const auto& icon = view.simIcon();
  if (!icon) return;
  // The picture stands where the icon view's image view stands.
  const auto& picture = view.imageView();
  host::Rect square = picture ? picture->presentationFrame(setting_.time) : host::Rect{0, 0, 60, 60};
  IconArt art = artFor(*icon, setting_.config);
  auto folder = icon->folder();
  if (folder || icon->isKindOf("SBFolderIcon")) {
    std::vector<IconArt> contents;
    if (folder) {
      for (const auto& list : folder->lists())
        for (const auto& inner : list->icons())
          if (inner) contents.push_back(artFor(*inner, setting_.config));
      art.name = folder->name();
    }
    paintFolderIcon(cr_, square, contents);
  } else {
    paintAppIcon(cr_, text_, square, art);
  }
  double labelAlpha = std::clamp(view.labelAlpha(), 0.0, 1.0);
  if (labelAlpha >= kInvisible) paintIconLabel(text_, bounds, square.y + square.height, labelFor(*icon, art), labelAlpha);
}

void ViewPainter::paintDockStrip(const host::Rect& bounds) {
  paintFrost(cr_, layers_, bounds, setting_.scale, lightFrost(), 1);
}

void ViewPainter::paintFolderBackground(const host::Rect& bounds) {
  // The whole screen behind an open folder is blurred and dimmed.
  cairo_save(cr_);
  cairo_identity_matrix(cr_);
  cairo_scale(cr_, setting_.scale, setting_.scale);
  host::Size screen{setting_.config ? setting_.config->screen.width : 0,
                    setting_.config ? setting_.config->screen.height : 0};
  paintFrost(cr_, layers_, {0, 0, screen.width, screen.height}, setting_.scale, {8, {0, 0, 0, 0.25}}, 1);
  cairo_restore(cr_);

  cairo_save(cr_);
  roundedRectangle(cr_, {-6, -6, bounds.width + 12, bounds.height + 12}, 30);
  cairo_clip(cr_);
  paintFrost(cr_, layers_, {-6, -6, bounds.width + 12, bounds.height + 12}, setting_.scale, lightFrost(), 1);
  cairo_restore(cr_);

  if (setting_.home) {
    TextStyle title;
    title.size = 28;
    title.weight = PANGO_WEIGHT_SEMIBOLD;
    title.align = TextStyle::Align::center;
    title.color = host::Color::whiteColor();
    text_.draw(setting_.home->openFolderName(), {0, -58, bounds.width, 40}, title);
  }
}

}  // namespace tessel::render
