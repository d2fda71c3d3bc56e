#pragma once

#include <map>
#include <memory>
#include <string>

#include "controller/shared_state.h"
#include "host/host.h"

namespace tessel {

class TesselNotificationController;
namespace hooks {
struct PreviousImplementations;
}

// Host classes by name, each looked up on first use and kept for the life of
// the process (a failed lookup is kept as nothing too).
class ClassCache {
 public:
  explicit ClassCache(host::Host& host) : host_(host) {}
  host::Ref<host::Class> get(const std::string& name);
  // Keeps a class that the library itself made known under `name`.
  void remember(const std::string& name, host::Ref<host::Class> cls);

 private:
  host::Host& host_;
  std::map<std::string, host::Ref<host::Class>, std::less<>> classes_;
};

// Everything the library keeps for the life of the host process. One module
// is loaded per host; `module()` is the loaded one.
struct Module {
  explicit Module(host::Host& host);
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  host::Host& host;
  SharedState shared;
  ClassCache classes;
  bool enabledPreference = true;
  // `sharedController`'s instance, made once on first use.
  std::shared_ptr<TesselNotificationController> controller;
  // The host's implementations of the replaced methods, filled at install.
  std::shared_ptr<hooks::PreviousImplementations> previous;
};

Module& module();
inline SharedState& shared() { return module().shared; }
inline host::Host& hostRef() { return module().host; }
inline host::Ref<host::Class> classNamed(const std::string& name) { return module().classes.get(name); }

}  // namespace tessel
