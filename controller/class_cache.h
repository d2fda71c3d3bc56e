#pragma once

#include <map>
#include <string>

#include "host/runtime.h"

namespace tessel {

// Host classes by name, each looked up on first use and kept for the life of
// the process (a failed lookup is kept as nothing too).
class ClassCache {
 public:
  explicit ClassCache(host::Runtime& runtime) : runtime_(runtime) {}
  host::Ref<host::Class> get(const std::string& name);

 private:
  host::Runtime& runtime_;
  std::map<std::string, host::Ref<host::Class>, std::less<>> classes_;
};

}  // namespace tessel
