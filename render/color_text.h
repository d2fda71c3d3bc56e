#pragma once

#include "host/color.h"

namespace tessel::render {

// Perceived lightness from 0 (black) to 1 (white).
double luminance(const host::Color& color);

}  // namespace tessel::render
