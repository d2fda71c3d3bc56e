#include "render/view_painter.h"

#include <algorithm>
#include <string>

#include "render/backdrop.h"
#include "render/image_surface.h"
#include "render/shapes.h"
#include "sim/sim_backdrop_view.h"
#include "sim/sim_icon_list_view.h"
#include "sim/sim_icon_view.h"
#include "sim/sim_image_view.h"
#include "sim/sim_label.h"
#include "sim/sim_layer.h"
#include "sim/sim_table_view_cell.h"

namespace tessel::render {
namespace {

bool clipIsEmpty(cairo_t* cr) {
  double x0, y0, x1, y1;
  cairo_clip_extents(cr, &x0, &y0, &x1, &y1);
  return x1 <= x0 || y1 <= y0;
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
  // so that overlapping children do not show through one another. The
  // group only needs to be as large as what the subtree draws.
  const auto* iconView = dynamic_cast<const sim::SimIconView*>(&view);
  const sim::SimView* drawnByParent = iconView ? iconView->imageView().get() : nullptr;
  bool group = alpha < 1 && std::any_of(view.children().begin(), view.children().end(),
                                        [&](const auto& child) { return child && child.get() != drawnByParent; });
  if (group) {
    host::Rect extent = drawnExtent(view);
    cairo_rectangle(cr_, extent.x, extent.y, extent.width, extent.height);
    cairo_clip(cr_);
    layers_.push(alpha);
  }
  paintContent(view, bounds, group ? 1 : alpha);
  paintChildren(view, drawnByParent);
  if (group) layers_.pop();
  cairo_restore(cr_);
}

host::Rect ViewPainter::drawnExtent(const sim::SimView& view) const {
  // Text and icon names may run a little past their frames.
  constexpr double kOverflow = 16;
  // An open folder dims the whole screen around it.
  if (view.isKindOf("SBFolderIconListView")) return {-1e5, -1e5, 2e5, 2e5};
  double left = -kOverflow, top = -kOverflow;
  host::Rect frame = view.presentationFrame(setting_.time);
  double right = frame.width + kOverflow, bottom = frame.height + kOverflow;
  if (!view.clipsToBounds() && !view.isKindOf("UIScrollView")) {
    for (const auto& child : view.children()) {
      if (!child || child->hidden()) continue;
      host::Rect place = child->presentationFrame(setting_.time);
      host::Rect inner = drawnExtent(*child);
      left = std::min(left, place.x + inner.x);
      top = std::min(top, place.y + inner.y);
      right = std::max(right, place.x + inner.x + inner.width);
      bottom = std::max(bottom, place.y + inner.y + inner.height);
    }
  }
  return {left, top, right - left, bottom - top};
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
    paintIconView(*icon, bounds, opacity);
  } else if (const auto* list = dynamic_cast<const sim::SimIconListView*>(&view)) {
    if (list->isKindOf("SBDockIconListView")) paintDockStrip(bounds, opacity);
    if (list->isKindOf("SBFolderIconListView")) paintFolderBackground(bounds, opacity);
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

}  // namespace tessel::render
