#pragma once

#include <cairo.h>

#include <string>
#include <vector>

#include "host/color.h"
#include "host/geometry.h"
#include "render/text.h"

namespace tessel::render {

// What an application icon looks like.
struct IconArt {
  std::string name;
  host::Color color = host::Color::grayColor();
  // A picture drawn in place of the generated face, or nothing.
  cairo_surface_t* picture = nullptr;
};

// The rounded square of an application icon filling `square`: its picture,
// or a face in the application's colour with its initial.
void paintAppIcon(cairo_t* cr, TextPainter& text, const host::Rect& square, const IconArt& art);

// A folder's rounded square with small faces of its first nine icons.
void paintFolderIcon(cairo_t* cr, const host::Rect& square, const std::vector<IconArt>& contents);

// The name under an icon, centred below the icon's square (whose bottom
// edge is at `squareBottom`), allowed to run a little wider than the view as
// on the phone.
// Where that name may draw, shadow included.
host::Rect iconLabelArea(const host::Rect& bounds, double squareBottom);
void paintIconLabel(TextPainter& text, const host::Rect& bounds, double squareBottom, const std::string& label,
                    double alpha);

}  // namespace tessel::render
