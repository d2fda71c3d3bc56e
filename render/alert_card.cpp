#include "render/alert_card.h"

#include <algorithm>
#include <cmath>

#include "render/shapes.h"

namespace tessel::render {

void paintAlert(cairo_t* cr, TextPainter& text, const host::Size& screen, const AlertText& alert) {
  cairo_save(cr);
  cairo_set_source_rgba(cr, 0, 0, 0, 0.4);
  cairo_rectangle(cr, 0, 0, screen.width, screen.height);
  cairo_fill(cr);

  const double width = std::min(270.0, screen.width - 40);
  const double padding = 16;
  const double buttonHeight = 44;
  TextStyle title;
  title.size = 17;
  title.weight = PANGO_WEIGHT_SEMIBOLD;
  title.align = TextStyle::Align::center;
  TextStyle message;
  message.size = 13;
  message.align = TextStyle::Align::center;
  message.lines = 6;
  double titleHeight = text.lineHeight(title);
  // Enough lines for the message at the card's width, at most six.
  double lineHeight = text.lineHeight(message);
  double messageWidth = text.measure(alert.message, message).width;
  double lines = std::clamp(std::ceil(messageWidth / (width - 2 * padding) + 0.15), 1.0, 6.0);
  double messageHeight = alert.message.empty() ? 0 : lines * lineHeight;
  double height = padding + titleHeight + 4 + messageHeight + padding + buttonHeight;
  host::Rect card{(screen.width - width) / 2, (screen.height - height) / 2, width, height};

  cairo_set_source_rgba(cr, 0.96, 0.96, 0.97, 0.97);
  roundedRectangle(cr, card, 14);
  cairo_fill(cr);
  double y = card.y + padding;
  text.draw(alert.title, {card.x + padding, y, width - 2 * padding, titleHeight}, title);
  y += titleHeight + 4;
  text.draw(alert.message, {card.x + padding, y, width - 2 * padding, messageHeight}, message);
  y = card.y + height - buttonHeight;
  cairo_set_source_rgba(cr, 0.24, 0.24, 0.26, 0.29);
  cairo_rectangle(cr, card.x, y, width, 0.5);
  cairo_fill(cr);

  TextStyle button;
  button.size = 17;
  button.weight = PANGO_WEIGHT_SEMIBOLD;
  button.align = TextStyle::Align::center;
  button.color = {0.0, 0.48, 1.0, 1};
  text.draw(alert.button, {card.x, y, width, buttonHeight}, button);
  cairo_restore(cr);
}

}  // namespace tessel::render
