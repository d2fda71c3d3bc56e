#include "controller/module.h"

#include "controller/tessel_notification_controller.h"

namespace tessel {
namespace {
Module* loaded = nullptr;
}  // namespace

host::Ref<host::Class> ClassCache::get(const std::string& name) {
  auto found = classes_.find(name);
  if (found != classes_.end()) return found->second;
  auto cls = host_.runtime()->getClass(name);
  classes_.emplace(name, cls);
  return cls;
}

void ClassCache::remember(const std::string& name, host::Ref<host::Class> cls) {
  classes_.insert_or_assign(name, std::move(cls));
}

Module::Module(host::Host& h) : host(h), classes(h) { loaded = this; }

Module::~Module() {
  if (loaded == this) loaded = nullptr;
}

Module& module() { return *loaded; }

}  // namespace tessel
