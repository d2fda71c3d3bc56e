#pragma once

#include <cairo.h>

#include "host/geometry.h"
#include "render/layer_stack.h"
#include "render/text.h"

namespace tessel::sim {
class HomeScreen;
class SimIconView;
class SimImageView;
class SimLabel;
class SimView;
struct WorldConfig;
}  // namespace tessel::sim

namespace tessel::render {

// Draws a view tree as it stands at one instant: every view at its
// presentation frame and alpha, in subview order, each subtree blended as
// one with its alpha, clipped by clipsToBounds and by a shape-layer mask.
// Reads the tree only.
class ViewPainter {
 public:
  struct Setting {
    double time = 0;
    double scale = 1;
    const sim::WorldConfig* config = nullptr;
    const sim::HomeScreen* home = nullptr;
  };

  ViewPainter(cairo_t* cr, LayerStack& layers, TextPainter& text, const Setting& setting);

  void paint(const sim::SimView& view);

 private:
  // Below half of one 8-bit step nothing of a view would show.
  static constexpr double kInvisible = 0.5 / 255;

  void paintContent(const sim::SimView& view, const host::Rect& bounds, double opacity);
  void paintChildren(const sim::SimView& view, const sim::SimView* skip);
  void paintLabel(const sim::SimLabel& label, const host::Rect& bounds, double opacity);
  void paintImage(const sim::SimImageView& view, const host::Rect& bounds, double opacity);
  void paintIconView(const sim::SimIconView& view, const host::Rect& bounds, double opacity);
  void paintDockStrip(const host::Rect& bounds, double opacity);
  void paintFolderBackground(const host::Rect& bounds, double opacity);
  bool applyMask(const sim::SimView& view);
  // A box, in the view's own coordinates, that holds all its subtree draws.
  host::Rect drawnExtent(const sim::SimView& view) const;

  cairo_t* cr_;
  LayerStack& layers_;
  TextPainter& text_;
  Setting setting_;
};

}  // namespace tessel::render
