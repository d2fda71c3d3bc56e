#include "fuzz/targets/scenario_contract.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "cli/limits.h"

namespace tessel::fuzz {

namespace {

std::optional<std::string> screenProblem(const sim::WorldConfig& world) {
  const auto& screen = world.screen;
  auto within = [](double value, double most) { return value > 0 && value <= most; };
  if (!within(screen.width, 4096) || !within(screen.height, 4096) || !within(screen.scale, 4)) {
    return "a screen of " + std::to_string(screen.width) + " x " + std::to_string(screen.height) + " at scale " +
           std::to_string(screen.scale);
  }
  if (auto problem = cli::pictureSizeProblem(screen, screen.scale)) return "a screen that cannot be drawn: " + *problem;
  if (world.page < 0 || (world.page > 0 && world.page >= static_cast<int>(world.pages.size()))) {
    return "home page " + std::to_string(world.page) + " of " + std::to_string(world.pages.size());
  }
  return std::nullopt;
}

std::optional<std::string> timeProblem(const cli::Scenario& scenario) {
  const auto& world = scenario.world;
  if (!std::isfinite(world.clockEpoch)) return "a clock that is not a finite time";
  for (const auto& [id, section] : world.notifications) {
    for (const auto& note : section) {
      if (!std::isfinite(note.date)) return "a notification of " + id + " dated at no finite time";
    }
  }
  if (scenario.events.size() > cli::kMaxEvents) return std::to_string(scenario.events.size()) + " events";
  for (const auto& event : scenario.events) {
    if (!std::isfinite(event.at) || event.at < 0) return "an event at " + std::to_string(event.at);
    if (event.action == "notify" && !std::isfinite(event.notification.date)) return "a notify at no finite time";
  }
  if (!std::is_sorted(scenario.events.begin(), scenario.events.end(),
                      [](const cli::Event& a, const cli::Event& b) { return a.at < b.at; })) {
    return "events out of time order";
  }
  return std::nullopt;
}

bool isOutputName(const std::string& name) {
  return !name.empty() && name.size() <= cli::kMaxOutputNameLength && name != cli::kFinalDumpName &&
         name.find('/') == std::string::npos && name != "." && name != "..";
}

std::optional<std::string> eventProblem(const cli::Event& event) {
  const std::string& a = event.action;
  if ((a == "snapshot" || a == "dump" || a == "record") && !isOutputName(event.name)) {
    return a + " named \"" + event.name + "\"";
  }
  if (a == "record") {
    double frames = std::floor((event.until - event.at) * event.fps) + 1;
    if (!(event.until > event.at) || !(event.fps >= 1 && event.fps <= 120) || !(frames <= cli::kMaxRecordFrames)) {
      return "a recording from " + std::to_string(event.at) + " to " + std::to_string(event.until) + " at " +
             std::to_string(event.fps) + " frames a second";
    }
  }
  if (a == "expect") {
    static const std::set<std::string> checks = {"equals", "near", "contains", "absent"};
    if (!checks.contains(event.check)) return "an expect with the check \"" + event.check + "\"";
    if (!event.pointer.empty() && event.pointer[0] != '/') return "an expect at \"" + event.pointer + "\"";
    if (event.check == "absent" && !event.value.is_boolean()) return "an absent check of no boolean";
    if (!(event.tolerance >= 0)) return "an expect of tolerance " + std::to_string(event.tolerance);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> scenarioContractProblem(const cli::Scenario& scenario) {
  if (auto problem = screenProblem(scenario.world)) return problem;
  if (auto problem = timeProblem(scenario)) return problem;
  for (std::size_t i = 0; i < scenario.events.size(); ++i) {
    if (auto problem = eventProblem(scenario.events[i])) {
      return "event " + std::to_string(i) + " (in run order): " + *problem;
    }
  }
  return std::nullopt;
}

}  // namespace tessel::fuzz
