#pragma once

#include <string>

#include "render/render.h"

namespace tessel::cli::serve {

// A picture as the bytes of a PNG file, made for speed over size.
std::string encodePng(const render::Picture& picture);

// A picture as the bytes of a lossy WebP file.
std::string encodeWebp(const render::Picture& picture);

}  // namespace tessel::cli::serve
