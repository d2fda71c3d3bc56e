#pragma once

#include <optional>
#include <string_view>

#include "host/color.h"

namespace tessel::render {

// "#RRGGBB" (or "RRGGBB") as an opaque colour; nothing when malformed.
std::optional<host::Color> parseHexColor(std::string_view text);

// Perceived lightness from 0 (black) to 1 (white).
double luminance(const host::Color& color);

}  // namespace tessel::render
