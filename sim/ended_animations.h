#pragma once

#include <cstdio>
#include <functional>

#include <nlohmann/json.hpp>

namespace tessel::sim {

struct AnimationRecord;

// Animations that have ended, kept in order in an anonymous temporary file
// (gone with the process, however it ends) instead of in memory: a long run
// makes millions of them and looks at them only when it writes a dump.
class EndedAnimations {
 public:
  EndedAnimations();
  ~EndedAnimations();
  EndedAnimations(const EndedAnimations&) = delete;
  EndedAnimations& operator=(const EndedAnimations&) = delete;

  // False when no temporary file could be made: the records stay in memory.
  bool usable() const { return file_ != nullptr; }
  void add(const AnimationRecord& record);
  void forEach(const std::function<void(const nlohmann::json&)>& visit) const;

 private:
  std::FILE* file_;
};

}  // namespace tessel::sim
