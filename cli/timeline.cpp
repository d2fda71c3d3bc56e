#include "cli/timeline.h"

#include <cmath>
#include <map>
#include <string>

namespace tessel::cli {

using nlohmann::json;

namespace {

constexpr int kProcess = 1;
constexpr int kEventTrack = 1;

double micros(double seconds) { return std::round(seconds * 1e6); }

}  // namespace

json makeTimeline(const json& dump, const std::vector<json>& trace) {
  json events = json::array();
  auto nameTrack = [&](int tid, const std::string& name) {
    events.push_back(
        {{"ph", "M"}, {"name", "thread_name"}, {"pid", kProcess}, {"tid", tid}, {"args", {{"name", name}}}});
  };
  events.push_back(
      {{"ph", "M"}, {"name", "process_name"}, {"pid", kProcess}, {"tid", 0}, {"args", {{"name", "simulated phone"}}}});
  nameTrack(kEventTrack, "events");

  // Each track remembers when its last animation ends, so that an animation
  // that starts before then goes to a further track of the same name.
  struct Track {
    int tid;
    double end;
  };
  std::map<std::string, std::vector<Track>> tracks;
  int nextTid = kEventTrack + 1;
  const json animations = dump.value("animations", json::array());
  for (const auto& animation : animations) {
    std::string target = animation.value("target", "?");
    std::string property = animation.value("property", "?");
    double start = animation.value("start", 0.0);
    double duration = animation.value("duration", 0.0);
    std::string key = target + " " + property;
    auto& lanes = tracks[key];
    Track* lane = nullptr;
    for (auto& candidate : lanes) {
      if (candidate.end <= start + 1e-12) {
        lane = &candidate;
        break;
      }
    }
    if (!lane) {
      lanes.push_back({nextTid++, 0});
      lane = &lanes.back();
      nameTrack(lane->tid, lanes.size() == 1 ? key : key + " #" + std::to_string(lanes.size()));
    }
    lane->end = start + duration;
    json args = {{"from", animation.value("from", json())},
                 {"to", animation.value("to", json())},
                 {"group", animation.value("group", json())},
                 {"finished", animation.value("finished", json())}};
    events.push_back({{"ph", "X"},
                      {"name", property},
                      {"cat", "animation"},
                      {"pid", kProcess},
                      {"tid", lane->tid},
                      {"ts", micros(start)},
                      {"dur", micros(duration)},
                      {"args", args}});
  }
  for (const auto& line : trace) {
    if (line.value("kind", "") != "event") continue;
    events.push_back({{"ph", "i"},
                      {"s", "t"},
                      {"name", line.value("do", "event")},
                      {"cat", "event"},
                      {"pid", kProcess},
                      {"tid", kEventTrack},
                      {"ts", micros(line.value("t", 0.0))},
                      {"args", line}});
  }
  return {{"traceEvents", events}, {"displayTimeUnit", "ms"}};
}

}  // namespace tessel::cli
