#pragma once

#include "host/host.h"

namespace tessel {

// `UIImage (AverageColor)`.
// `averageColor`: the mean of the first three stored bytes of every pixel,
// taken as red, green and blue; alpha 1.
host::Color averageColor(const host::Ref<host::Image>& image);
// `mergedColor`: the graphics layer's 1 x 1 resampling of the image, read
// from a context stored blue first; alpha 1.
host::Color mergedColor(host::Host& host, const host::Ref<host::Image>& image);

}  // namespace tessel
