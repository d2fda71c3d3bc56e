#include "cli/scenario_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace tessel::cli {

namespace fs = std::filesystem;

namespace {

// A file wrong in every one of its thousand events would bury the first
// problems, which are the ones to fix first.
constexpr std::size_t kProblemsShown = 50;

void printSome(const std::vector<std::string>& lines, const std::string& prefix, const std::string& more,
               std::ostream& err) {
  for (std::size_t i = 0; i < lines.size() && i < kProblemsShown; ++i) err << prefix << lines[i] << "\n";
  if (lines.size() > kProblemsShown) err << prefix << "... and " << lines.size() - kProblemsShown << more << "\n";
}

}  // namespace

std::optional<ScenarioSource> readScenarioSource(const std::string& path, std::ostream& err) {
  ScenarioSource source;
  if (path == "-") {
    source.text.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
    source.base = fs::current_path().string();
    return source;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    err << path << ": cannot read the scenario file\n";
    return std::nullopt;
  }
  source.text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  source.base = fs::absolute(path).parent_path().string();
  return source;
}

void printProblems(const ParseResult& result, const std::string& name, std::ostream& err) {
  printSome(result.errors, name + ": ", " more problems", err);
  printSome(result.warnings, name + ": warning: ", " more warnings", err);
}

}  // namespace tessel::cli
