#pragma once

#include <optional>
#include <string>

#include "render/render.h"

namespace tessel::render {

// Reads a PNG as 8-bit RGBA, not premultiplied, whatever its stored format.
std::optional<Picture> readPng(const std::string& path, std::string& error);

}  // namespace tessel::render
