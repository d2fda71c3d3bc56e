#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "cli/scenario.h"

namespace tessel::cli {

// A scenario file's text and the directory its relative file names are
// read from.
struct ScenarioSource {
  std::string text;
  std::string base;
};

// Reads `path` ("-": standard input); nothing, after saying so on `err`,
// when it cannot be read.
std::optional<ScenarioSource> readScenarioSource(const std::string& path, std::ostream& err);

// Prints the problems and warnings of a read scenario, each after `name`.
void printProblems(const ParseResult& result, const std::string& name, std::ostream& err);

}  // namespace tessel::cli
