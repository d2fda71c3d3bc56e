#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "cli/scenario.h"

namespace tessel::cli {

struct RunOptions {
  std::string outDirectory = "out";
  std::optional<double> scale;  // overrides the scenario's screen scale for pictures
  bool progress = false;        // a line per picture written
};

// Exit statuses of the tool.
inline constexpr int kExitOk = 0;
inline constexpr int kExitExpectFailed = 1;
inline constexpr int kExitInvalid = 2;

// Plays a scenario on a fresh simulated phone and writes what it asks for,
// then final.state.json, trace.jsonl and timeline.json. Returns the exit status.
int runScenario(const Scenario& scenario, const RunOptions& options, std::ostream& out, std::ostream& err);

}  // namespace tessel::cli
