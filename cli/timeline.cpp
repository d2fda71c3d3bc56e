#include "cli/timeline.h"

#include <cmath>

namespace tessel::cli {

using nlohmann::json;

namespace {

constexpr int kProcess = 1;
constexpr int kEventTrack = 1;

double micros(double seconds) { return std::round(seconds * 1e6); }

std::FILE* begun(std::FILE* file) {
  std::fputs("{\"displayTimeUnit\":\"ms\",\"traceEvents\":[", file);
  return file;
}

}  // namespace

Timeline::Timeline(Emit emit) : emit_(std::move(emit)), nextTid_(kEventTrack + 1) {
  emit_(
      {{"ph", "M"}, {"name", "process_name"}, {"pid", kProcess}, {"tid", 0}, {"args", {{"name", "simulated phone"}}}});
  nameTrack(kEventTrack, "events");
}

void Timeline::nameTrack(int tid, const std::string& name) {
  emit_({{"ph", "M"}, {"name", "thread_name"}, {"pid", kProcess}, {"tid", tid}, {"args", {{"name", name}}}});
}

void Timeline::traceLine(const json& line) {
  if (line.value("kind", "") != "event") return;
  emit_({{"ph", "i"},
         {"s", "t"},
         {"name", line.value("do", "event")},
         {"cat", "event"},
         {"pid", kProcess},
         {"tid", kEventTrack},
         {"ts", micros(line.value("t", 0.0))},
         {"args", line}});
}

void Timeline::animation(const json& animation) {
  std::string target = animation.value("target", "?");
  std::string property = animation.value("property", "?");
  double start = animation.value("start", 0.0);
  double duration = animation.value("duration", 0.0);
  std::string key = target + " " + property;
  // Each track remembers when its last animation ends, so that an animation
  // that starts before then goes to a further track of the same name.
  auto& lanes = tracks_[key];
  Track* lane = nullptr;
  for (auto& candidate : lanes) {
    if (candidate.end <= start + 1e-12) {
      lane = &candidate;
      break;
    }
  }
  if (!lane) {
    lanes.push_back({nextTid_++, 0});
    lane = &lanes.back();
    nameTrack(lane->tid, lanes.size() == 1 ? key : key + " #" + std::to_string(lanes.size()));
  }
  lane->end = start + duration;
  json args = {{"from", animation.value("from", json())},
               {"to", animation.value("to", json())},
               {"group", animation.value("group", json())},
               {"finished", animation.value("finished", json())}};
  emit_({{"ph", "X"},
         {"name", property},
         {"cat", "animation"},
         {"pid", kProcess},
         {"tid", lane->tid},
         {"ts", micros(start)},
         {"dur", micros(duration)},
         {"args", args}});
}

json makeTimeline(const json& dump, const std::vector<json>& trace) {
  json events = json::array();
  Timeline timeline([&events](const json& piece) { events.push_back(piece); });
  if (auto found = dump.find("animations"); found != dump.end() && found->is_array())
    for (const auto& animation : *found) timeline.animation(animation);
  for (const auto& line : trace) timeline.traceLine(line);
  return {{"traceEvents", events}, {"displayTimeUnit", "ms"}};
}

TimelineFile::TimelineFile(std::FILE* file)
    : file_(begun(file)), timeline_([this](const json& piece) { write(piece); }) {}

void TimelineFile::write(const json& piece) {
  if (!first_) std::fputc(',', file_);
  first_ = false;
  std::string text = piece.dump();
  std::fwrite(text.data(), 1, text.size(), file_);
}

void TimelineFile::finish() {
  std::fputs("]}\n", file_);
}

}  // namespace tessel::cli
