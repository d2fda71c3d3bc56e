#include <iostream>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/runner.h"
#include "cli/serve/serve_command.h"
#include "cli/soak.h"

int main(int argc, char** argv) {
  using namespace tessel::cli;
  CLI::App app{
      "tessel-sim plays scripted scenarios of the notification panel on a simulated phone home screen and writes "
      "state dumps, traces and pictures."};
  app.require_subcommand(1);

  std::string outDirectory = "out";
  std::optional<double> scale;
  std::string scenarioPath;
  std::string imagePath;
  bool json = false;

  auto* demo = app.add_subcommand("demo", "Play the built-in demo scenario and write its pictures and dumps");
  demo->add_option("--out", outDirectory, "Directory for the output files")->capture_default_str();
  demo->add_option("--scale", scale, "Pixels per point of the pictures (overrides the scenario's)")
      ->check(CLI::Range(0.25, 4.0));

  auto* run = app.add_subcommand("run", "Play a scenario file (\"-\" reads standard input)");
  run->add_option("scenario", scenarioPath, "Scenario file (JSON)")->required();
  run->add_option("--out", outDirectory, "Directory for the output files")->capture_default_str();
  run->add_option("--scale", scale, "Pixels per point of the pictures (overrides the scenario's)")
      ->check(CLI::Range(0.25, 4.0));

  auto* check = app.add_subcommand("check", "Validate a scenario file without running it");
  check->add_option("scenario", scenarioPath, "Scenario file (JSON)")->required();

  auto* color = app.add_subcommand("color", "Print the averageColor and mergedColor of a PNG image");
  color->add_option("image", imagePath, "PNG image")->required()->check(CLI::ExistingFile);
  color->add_flag("--json", json, "Print {\"averageColor\": [r, g, b, a], \"mergedColor\": [r, g, b, a]}");

  serve::ServeOptions serveOptions;
  auto* serve = app.add_subcommand("serve", "Run a scenario's phone live in the browser, driven by mouse and controls");
  serve->add_option("scenario", serveOptions.scenarioPath, "Scenario file whose phone is served (default: the demo's)");
  serve->add_option("--port", serveOptions.port, "Port to listen on (0: any free port)")
      ->capture_default_str()
      ->check(CLI::Range(0, 65535));
  serve->add_option("--host", serveOptions.host, "Address to listen on")->capture_default_str();
  serve->add_option("--scale", serveOptions.scale, "Pixels per point of the frames (default 1)")
      ->check(CLI::Range(0.25, 4.0));

  SoakOptions soakOptions;
  auto* soak = app.add_subcommand(
      "soak", "Play random phones and random events, checking that every closing leaves no panel and no dimmed icon");
  soak->add_option("--scenarios", soakOptions.scenarios, "How many random phones")
      ->capture_default_str()
      ->check(CLI::Range(1, 10000000));
  soak->add_option("--seed", soakOptions.firstSeed, "Seed of the first phone; the next ones count up")
      ->capture_default_str();
  soak->add_flag("--trace", soakOptions.trace, "Print every event on standard error");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    int status = app.exit(e);
    return status == 0 ? kExitOk : kExitInvalid;
  }

  try {
    if (*demo) return demoCommand(outDirectory, scale, std::cout, std::cerr);
    if (*run) return runCommand(scenarioPath, outDirectory, scale, std::cout, std::cerr);
    if (*check) return checkCommand(scenarioPath, std::cout, std::cerr);
    if (*color) return colorCommand(imagePath, json, std::cout, std::cerr);
    if (*soak) return soakCommand(soakOptions, std::cout, std::cerr);
    if (*serve) return serve::serveCommand(serveOptions, std::cout, std::cerr);
  } catch (const std::exception& e) {
    std::cerr << "tessel-sim: " << e.what() << "\n";
    return kExitInvalid;
  }
  return kExitInvalid;
}
