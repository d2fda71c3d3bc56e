#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

namespace tessel::cli {

struct SoakOptions {
  unsigned firstSeed = 1;
  int scenarios = 300;
  bool trace = false;  // each event on standard error
};

struct SoakResult {
  int scenarios = 0;
  long long events = 0;
  long long closingsChecked = 0;
  // The first broken closing: its seed, event and what was left behind.
  std::optional<std::string> failure;
  std::optional<unsigned> failedSeed;
  int stoppedBySignal = 0;
};

// What a settled closing must leave: no panel and no companion view in the
// key window, every icon view on screen at full opacity. Empty when so.
std::string closingProblem(const nlohmann::json& dump);

// Plays random phones, seed after seed, checking every closing a second
// after it. A closing followed by a press that may still lift is not
// checked: a long press acts when it begins and again when it ends, and
// the second may open the panel again.
SoakResult runSoak(const SoakOptions& options, std::ostream& err);

// `tessel-sim soak`: runs the soak and reports, with the command that
// replays a failing seed.
int soakCommand(const SoakOptions& options, std::ostream& out, std::ostream& err);

}  // namespace tessel::cli
