// The settings file as the library reads it on a simulated phone: XML or
// binary property lists, whole or broken.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/targets/property_list_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto reading = tessel::fuzz::readSettingsFile({reinterpret_cast<const char*>(data), size});
  if (auto problem = tessel::fuzz::settingsReadingProblem(reading)) {
    std::fprintf(stderr, "settings file: %s\n", problem->c_str());
    std::abort();
  }
  return 0;
}
