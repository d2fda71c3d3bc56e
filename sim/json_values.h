#pragma once

#include <nlohmann/json.hpp>

#include "host/color.h"
#include "host/geometry.h"

namespace tessel::sim {

// Geometry and colours as the dump writes them: arrays of numbers.
inline nlohmann::json toJsonValue(const host::Rect& r) { return {r.x, r.y, r.width, r.height}; }
inline nlohmann::json toJsonValue(const host::Point& p) { return {p.x, p.y}; }
inline nlohmann::json toJsonValue(const host::Color& c) { return {c.red, c.green, c.blue, c.alpha}; }

}  // namespace tessel::sim
