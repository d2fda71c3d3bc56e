#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/scenario.h"

namespace tessel::fuzz {

// Reads and checks a scenario file of these bytes, as `tessel-sim check`
// does, in a directory that holds a few files a scenario may name: a
// picture `icon.png`, a picture whose header claims too many pixels
// `huge.png`, a cut-off picture `broken.png` and a settings file
// `settings.plist`.
cli::ParseResult readScenarioFile(std::string_view bytes);

// What a result breaks of the reader's promises, or nothing: a scenario and
// no errors, or no scenario and errors; every error and warning begins with
// its place ("events[3].point: ..."); and a scenario that passed holds only
// what a run can play.
std::optional<std::string> scenarioResultProblem(const cli::ParseResult& result);

}  // namespace tessel::fuzz
