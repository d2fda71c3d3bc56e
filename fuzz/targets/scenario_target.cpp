#include "fuzz/targets/scenario_target.h"

#include <filesystem>

#include "fuzz/targets/located_message.h"
#include "fuzz/targets/scenario_contract.h"
#include "fuzz/targets/scratch_directory.h"

namespace tessel::fuzz {

namespace fs = std::filesystem;

namespace {

// A 1 x 1 RGBA picture.
constexpr std::string_view kIcon(
    "\x89PNG\r\n\x1a\n"
    "\x00\x00\x00\x0dIHDR\x00\x00\x00\x01\x00\x00\x00\x01\x08\x06\x00\x00\x00\x1f\x15\xc4\x89"
    "\x00\x00\x00\x0dIDAT\x78\x9c\x63\x10\x50\x30\xf8\x0f\x00\x02\x04\x01\x60\x8d\xbc\xbb\x71"
    "\x00\x00\x00\x00IEND\xae\x42\x60\x82",
    70);

// The signature and a header claiming 100000 x 100000 RGBA pixels.
constexpr std::string_view kHugeHeader(
    "\x89PNG\r\n\x1a\n"
    "\x00\x00\x00\x0dIHDR\x00\x01\x86\xa0\x00\x01\x86\xa0\x08\x06\x00\x00\x00\x00\x00\x00\x00",
    33);

constexpr std::string_view kSettings =
    R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)"
    R"(<key>darkMode</key><false/><key>activationMethod</key><integer>2</integer></dict></plist>)";

const fs::path& baseDirectory() {
  static const fs::path base = [] {
    fs::path directory = scratchDirectory() / "scenario";
    writeScratchFile(directory / "icon.png", kIcon);
    writeScratchFile(directory / "huge.png", kHugeHeader);
    writeScratchFile(directory / "broken.png", kIcon.substr(0, 40));
    writeScratchFile(directory / "settings.plist", kSettings);
    return directory;
  }();
  return base;
}

}  // namespace

cli::ParseResult readScenarioFile(std::string_view bytes) {
  return cli::parseScenarioText(std::string(bytes), baseDirectory().string());
}

std::optional<std::string> scenarioResultProblem(const cli::ParseResult& result) {
  if (result.scenario.has_value() == !result.errors.empty()) {
    return result.scenario ? "a scenario that passed with errors" : "a scenario refused without an error";
  }
  for (const auto& error : result.errors) {
    if (!isLocatedMessage(error)) return "an error that names no place: " + error;
  }
  for (const auto& warning : result.warnings) {
    if (!isLocatedMessage(warning)) return "a warning that names no place: " + warning;
  }
  if (result.scenario) {
    if (auto problem = scenarioContractProblem(*result.scenario)) return "a scenario that passed holds " + *problem;
  }
  return std::nullopt;
}

}  // namespace tessel::fuzz
