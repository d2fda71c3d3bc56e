#pragma once

#include <pango/pango.h>

#include <string>

#include "host/geometry.h"

namespace tessel::render {

// What a piece of text is laid out with.
struct LayoutRequest {
  std::string text;
  double size = 17;
  PangoWeight weight = PANGO_WEIGHT_NORMAL;
  PangoAlignment alignment = PANGO_ALIGN_LEFT;
  // In points; 0 for one unbounded line.
  double width = 0;
  // Lines kept before an ellipsis; 0 for as many as `height` holds.
  int lines = 1;
  double height = 0;
  auto operator<=>(const LayoutRequest&) const = default;
};

struct LaidOut {
  PangoLayout* layout;
  host::Size size;
};

// Laid-out text, kept for later pictures: a screen shows the same names and
// messages frame after frame, and laying text out costs more than drawing it.
// The layout belongs to the cache.
LaidOut layoutFor(const LayoutRequest& request);

}  // namespace tessel::render
