#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "cli/commands.h"
#include "cli/demo_scenario.h"
#include "cli/runner.h"
#include "cli/scenario_file.h"
#include "cli/stop_signal.h"

namespace tessel::cli {

namespace fs = std::filesystem;

namespace {

// Reads a scenario from a file ("-": standard input) and checks it; prints
// every problem and answers nothing when it is invalid.
std::optional<Scenario> loadScenario(const std::string& path, std::ostream& err) {
  auto source = readScenarioSource(path, err);
  if (!source) return std::nullopt;
  ParseResult result = parseScenarioText(source->text, source->base);
  printProblems(result, path == "-" ? "<stdin>" : path, err);
  return result.scenario;
}

// A --scale that makes pictures of the scenario's screen impossible.
bool scaleIsInvalid(const Scenario& scenario, std::optional<double> scale, std::ostream& err) {
  if (!scale) return false;
  auto problem = pictureSizeProblem(scenario.world.screen, *scale);
  if (problem) err << "--scale: " << *problem << "\n";
  return problem.has_value();
}

}  // namespace

int demoCommand(const std::string& outDirectory, std::optional<double> scale, std::ostream& out, std::ostream& err) {
  ParseResult result = parseScenarioText(std::string(demoScenarioText()), fs::current_path().string());
  printProblems(result, "demo scenario", err);
  if (!result.scenario || scaleIsInvalid(*result.scenario, scale, err)) return kExitInvalid;
  RunOptions options{outDirectory, scale, true};
  catchStopSignals();
  out << "tessel-sim demo: playing the built-in scenario into " << outDirectory << "/\n";
  int status = runScenario(*result.scenario, options, out, err);
  if (status != kExitInvalid) {
    out << "wrote " << (fs::path(outDirectory) / "final.state.json").string() << ", trace.jsonl and timeline.json\n";
  }
  return status;
}

int runCommand(const std::string& scenarioPath, const std::string& outDirectory, std::optional<double> scale,
               std::ostream& out, std::ostream& err) {
  auto scenario = loadScenario(scenarioPath, err);
  if (!scenario || scaleIsInvalid(*scenario, scale, err)) return kExitInvalid;
  RunOptions options{outDirectory, scale, false};
  catchStopSignals();
  return runScenario(*scenario, options, out, err);
}

int checkCommand(const std::string& scenarioPath, std::ostream& out, std::ostream& err) {
  auto scenario = loadScenario(scenarioPath, err);
  if (!scenario) return kExitInvalid;
  out << scenarioPath << ": valid (" << scenario->events.size() << " events)\n";
  return kExitOk;
}

}  // namespace tessel::cli
