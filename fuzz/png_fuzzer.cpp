// PNG files as wallpapers and icons are loaded.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/targets/png_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto reading = tessel::fuzz::loadPngFile({reinterpret_cast<const char*>(data), size});
  if (auto problem = tessel::fuzz::pngReadingProblem(reading)) {
    std::fprintf(stderr, "PNG: %s\n", problem->c_str());
    std::abort();
  }
  return 0;
}
