#include "sim/ended_animations.h"

#include <cstdlib>

#include "sim/animation_record.h"

namespace tessel::sim {

EndedAnimations::EndedAnimations() : file_(std::tmpfile()) {}

EndedAnimations::~EndedAnimations() {
  if (file_) std::fclose(file_);
}

void EndedAnimations::add(const AnimationRecord& record) {
  std::string line = record.toJson().dump();
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), file_);
}

void EndedAnimations::forEach(const std::function<void(const nlohmann::json&)>& visit) const {
  if (!file_ || std::fflush(file_) != 0 || std::fseek(file_, 0, SEEK_SET) != 0) return;
  char* line = nullptr;
  std::size_t capacity = 0;
  while (getline(&line, &capacity, file_) > 0) visit(nlohmann::json::parse(line));
  std::free(line);
  std::fseek(file_, 0, SEEK_END);
}

}  // namespace tessel::sim
