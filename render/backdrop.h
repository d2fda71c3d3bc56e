#pragma once

#include <cairo.h>

#include <cstdint>

#include "host/color.h"
#include "host/geometry.h"
#include "render/layer_stack.h"

namespace tessel::render {

// How a kind of frosted glass looks: how far it spreads what lies behind it
// (the blur's standard deviation, in points) and the colour laid over it.
struct Frost {
  double blurPoints = 10;
  host::Color tint;
};

// The look of a backdrop view's blur style: 1 is the panel's dark glass,
// 2 the softer darkening behind the panel.
Frost frostForBackdropStyle(std::int64_t style);
// The light glass of the dock and of an open folder.
Frost lightFrost();

// Blurs what has been drawn so far under `rect` (user space of `cr`, which
// is the picture scaled by `scale` and translated) and lays it back, tinted,
// inside the current clip.
void paintFrost(cairo_t* cr, LayerStack& layers, const host::Rect& rect, double scale, const Frost& frost,
                double opacity);

}  // namespace tessel::render
