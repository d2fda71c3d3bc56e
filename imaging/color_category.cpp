#include "imaging/color_category.h"

namespace tessel {

host::Ref<host::Image> imageWithColorAndFrame(host::Host& host, const host::Color& color, const host::Rect& frame) {
  auto context = host.beginImageContext({frame.width, frame.height});
  context->setFillColor(color);
  // The context is only the frame's size, so a frame with an origin leaves
  // the image's leading edges transparent.
  context->fillRect(frame);
  auto image = context->imageFromContext();
  context->end();
  return image;
}

}  // namespace tessel
