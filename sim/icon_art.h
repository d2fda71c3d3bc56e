#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/color.h"
#include "sim/sim_image.h"

namespace tessel::sim {

// "#RRGGBB" as a colour; nothing when it is not one.
std::optional<host::Color> parseHexColor(const std::string& text);
// A stable, distinct colour for an identifier.
host::Color generatedColor(const std::string& identifier);
// A name from an identifier: its last part, capitalised ("com.example.mail" → "Mail").
std::string generatedName(const std::string& identifier);
// An icon picture of `points` square at `scale`: the colour, lighter at the top.
std::shared_ptr<SimImage> generatedIconImage(const host::Color& color, double points, double scale);

}  // namespace tessel::sim
