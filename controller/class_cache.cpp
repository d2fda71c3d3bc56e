#include "controller/class_cache.h"

namespace tessel {

host::Ref<host::Class> ClassCache::get(const std::string& name) {
  auto found = classes_.find(name);
  if (found != classes_.end()) return found->second;
  auto cls = runtime_.getClass(name);
  classes_.emplace(name, cls);
  return cls;
}

}  // namespace tessel
