#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tessel::cli {

// The animations of a state dump and the events of a trace as a Chrome
// trace-event document: one complete event per animation, in microseconds,
// on a track per target and property (a second track where two overlap).
// The pieces are handed out one at a time, so that a long run can write
// them as they come.
class Timeline {
 public:
  using Emit = std::function<void(const nlohmann::json&)>;
  // Emits the names of the process and of the events' track.
  explicit Timeline(Emit emit);
  // A mark for a trace line that is an event; other lines are not shown.
  void traceLine(const nlohmann::json& line);
  // One animation of the final dump, on its track.
  void animation(const nlohmann::json& record);

 private:
  struct Track {
    int tid;
    double end;
  };
  void nameTrack(int tid, const std::string& name);

  Emit emit_;
  std::map<std::string, std::vector<Track>> tracks_;
  int nextTid_;
};

// The whole document at once.
nlohmann::json makeTimeline(const nlohmann::json& dump, const std::vector<nlohmann::json>& trace);

// Writes the document to `file` piece by piece: begun at construction,
// closed by finish().
class TimelineFile {
 public:
  explicit TimelineFile(std::FILE* file);
  void traceLine(const nlohmann::json& line) { timeline_.traceLine(line); }
  void animation(const nlohmann::json& record) { timeline_.animation(record); }
  void finish();

 private:
  void write(const nlohmann::json& piece);

  std::FILE* file_;
  bool first_ = true;
  Timeline timeline_;
};

}  // namespace tessel::cli
