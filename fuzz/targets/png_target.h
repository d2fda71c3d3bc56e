#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/png_loader.h"

namespace tessel::fuzz {

struct PngReading {
  std::string path;  // where the bytes were put
  sim::PngLoad load;
};

// Loads a PNG file of these bytes as a wallpaper or an icon is loaded, and
// reads the loaded picture's corner pixels and its one colour.
PngReading loadPngFile(std::string_view bytes);

// What a load breaks of the loader's promises, or nothing: a picture and no
// error, or an error naming the file and no picture; a picture of at least
// one pixel and at most the most a picture may have, RGB or RGBA, its rows
// as long as its width and its bytes as many as its rows.
std::optional<std::string> pngReadingProblem(const PngReading& reading);

}  // namespace tessel::fuzz
