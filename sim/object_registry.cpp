#include "sim/object_registry.h"

#include "sim/sim_object.h"

namespace tessel::sim {

namespace {
constexpr std::size_t kPurgeEvery = 4096;
}  // namespace

void ObjectRegistry::add(const std::shared_ptr<SimObject>& object, bool isView) {
  std::string id = isView ? "v" + std::to_string(nextView_++) : "o" + std::to_string(nextOther_++);
  object->assignId(id);
  objects_.emplace(std::move(id), object);
  if (++addsSincePurge_ >= kPurgeEvery) forgetExpired();
}

std::shared_ptr<SimObject> ObjectRegistry::find(const std::string& id) const {
  auto found = objects_.find(id);
  return found == objects_.end() ? nullptr : found->second.lock();
}

void ObjectRegistry::forgetExpired() {
  addsSincePurge_ = 0;
  std::erase_if(objects_, [](const auto& entry) { return entry.second.expired(); });
}

}  // namespace tessel::sim
