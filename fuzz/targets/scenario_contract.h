#pragma once

#include <optional>
#include <string>

#include "cli/scenario.h"

namespace tessel::fuzz {

// The first thing that a scenario which passed the checks breaks of what a
// run relies on, or nothing: events within their number and in time order,
// times and dates finite, a screen that can be drawn, recordings within
// their frames, output names that are plain file names, and expectations
// with one check and a pointer.
std::optional<std::string> scenarioContractProblem(const cli::Scenario& scenario);

}  // namespace tessel::fuzz
