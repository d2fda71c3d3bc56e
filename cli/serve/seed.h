#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "cli/json_reader.h"
#include "cli/scenario.h"

namespace tessel::cli::serve {

// The scenario a served phone is made from.
struct Seed {
  std::string origin;  // the file it came from, or "the demo"
  Json document;       // as read, every file it names made absolute
  Scenario scenario;
};

// Reads and checks a scenario file (an empty path: the built-in demo);
// prints every problem and answers nothing when it is invalid.
std::optional<Seed> loadSeed(const std::string& path, std::ostream& err);

}  // namespace tessel::cli::serve
