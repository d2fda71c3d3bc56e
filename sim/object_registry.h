#pragma once

#include <map>
#include <memory>
#include <string>

namespace tessel::sim {

class SimObject;

// Ids to objects, without keeping any object alive.
class ObjectRegistry {
 public:
  // Gives `object` the next id of its kind.
  void add(const std::shared_ptr<SimObject>& object, bool isView);
  // The live object of that id, or nothing.
  std::shared_ptr<SimObject> find(const std::string& id) const;

 private:
  void forgetExpired();

  long long nextView_ = 1;
  long long nextOther_ = 1;
  std::size_t addsSincePurge_ = 0;
  std::map<std::string, std::weak_ptr<SimObject>> objects_;
};

}  // namespace tessel::sim
