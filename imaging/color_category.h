#pragma once

#include "host/host.h"

namespace tessel {

// `UIImage (Color)` `imageWithColor:andFrame:`: an image of the frame's size
// with the frame rectangle, origin included, filled with the colour.
host::Ref<host::Image> imageWithColorAndFrame(host::Host& host, const host::Color& color, const host::Rect& frame);

}  // namespace tessel
