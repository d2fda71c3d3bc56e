#pragma once

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/json_reader.h"

#include "host/geometry.h"
#include "sim/world_config.h"

namespace tessel::cli {

// One timed step of a scenario: what the simulated person or host does.
struct Event {
  double at = 0;
  std::string action;  // the event's `do`
  std::string icon;
  std::string gesture;
  double hold = 1.0;
  host::Point point;
  long long row = 0;
  bool handled = true;
  bool show = true;
  host::Rect frame;
  bool on = true;
  std::string folder;  // `name` of openFolder / closeFolder
  int index = 0;
  sim::WorldConfig::Notification notification;
  sim::WorldConfig::Settings settings;
  std::string name;  // file name of snapshot, record, dump
  double until = 0;
  double fps = 60;
  // `expect`
  std::string pointer;
  std::string check;     // "equals", "near", "contains" or "absent"
  nlohmann::json value;  // what an expect compares with
  double tolerance = 1e-6;
};

struct Scenario {
  sim::WorldConfig world;
  std::vector<Event> events;  // in run order: by `at`, ties in file order
  std::string baseDirectory;  // where relative file names are resolved
};

// The result of reading a scenario: the scenario, or every problem found,
// each naming its place ("events[3].point: expected [x, y]").
struct ParseResult {
  std::optional<Scenario> scenario;
  std::vector<std::string> errors;
  std::vector<std::string> warnings;  // what is read anyway, differently ("wallpaper: ...")
};

ParseResult parseScenario(const Json& document, const std::string& baseDirectory);
ParseResult parseScenarioText(const std::string& text, const std::string& baseDirectory);

// Why pictures of `screen` at `scale` cannot be drawn (less than a pixel, or
// more pixels than a picture may have), or nothing.
std::optional<std::string> pictureSizeProblem(const sim::WorldConfig::Screen& screen, double scale);

}  // namespace tessel::cli
