#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/geometry.h"

namespace tessel::sim {

class SimView;
struct AnimationRecord;

// One `animateWithDuration:` call (or one of the host's own animated moves):
// its records and its completion, which runs once.
struct AnimationGroup {
  int id = 0;
  double start = 0;
  double duration = 0;
  std::function<void(bool)> completion;
  std::vector<std::weak_ptr<AnimationRecord>> records;
  int running = 0;
  bool cutShort = false;
  bool done = false;
};

// One property of one view going from a value to another.
struct AnimationRecord {
  enum class Property { frame, alpha };

  std::shared_ptr<AnimationGroup> group;
  std::weak_ptr<SimView> view;
  std::string target;
  Property property = Property::frame;
  host::Rect fromFrame;
  host::Rect toFrame;
  double fromAlpha = 0;
  double toAlpha = 0;
  double start = 0;
  double duration = 0;
  // Unknown while running; false when cut short.
  std::optional<bool> finished;
  double cutAt = 0;

  double end() const { return start + duration; }
  bool runningAt(double t) const;
  // Eased progress 0…1 at time t.
  double progressAt(double t) const;
  host::Rect frameAt(double t) const;
  double alphaAt(double t) const;
  nlohmann::json toJson() const;
};

}  // namespace tessel::sim
