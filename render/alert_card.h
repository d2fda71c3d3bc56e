#pragma once

#include <cairo.h>

#include <string>

#include "host/geometry.h"
#include "render/text.h"

namespace tessel::render {

struct AlertText {
  std::string title;
  std::string message;
  std::string button;
};

// A shown alert: the screen dimmed, and a card in its centre with the
// title, the message and one button.
void paintAlert(cairo_t* cr, TextPainter& text, const host::Size& screen, const AlertText& alert);

}  // namespace tessel::render
