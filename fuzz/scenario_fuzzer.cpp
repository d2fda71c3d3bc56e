// Scenario files as `tessel-sim check` reads them: the bounded JSON reader,
// then every section's reader and check.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/targets/scenario_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto result = tessel::fuzz::readScenarioFile({reinterpret_cast<const char*>(data), size});
  if (auto problem = tessel::fuzz::scenarioResultProblem(result)) {
    std::fprintf(stderr, "scenario: %s\n", problem->c_str());
    std::abort();
  }
  return 0;
}
