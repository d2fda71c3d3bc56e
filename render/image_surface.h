#pragma once

#include <cairo.h>

#include <memory>

#include "host/image.h"

namespace tessel::render {

// The image's pixels as a cairo surface, converted once per image (images
// never change); nothing when the image is not one the host keeps pixels of.
cairo_surface_t* surfaceForImage(const std::shared_ptr<host::Image>& image);

}  // namespace tessel::render
