#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "host/method_hook.h"
#include "sim/sim_class.h"

namespace tessel::sim {

class Recorder;

// The simulated object runtime: the host's classes by name (see
// class_catalogue.cpp), the library's own classes, method replacement.
class SimRuntime : public host::Runtime {
 public:
  explicit SimRuntime(Recorder& recorder);

  // |host::Runtime|
  host::Ref<host::Class> getClass(std::string_view name) override;
  std::any replace(const host::Ref<host::Class>& cls, const host::MethodName& method, std::any replacement) override;
  host::Ref<host::Object> instanceVariable(const host::Ref<host::Object>& object, std::string_view name) override;

  // The class of that name, or nothing.
  std::shared_ptr<SimClass> find(std::string_view name) const;
  // Makes a class known; an existing class of that name is kept and returned.
  std::shared_ptr<SimClass> define(std::string_view name, std::string_view superclassName);

 private:
  Recorder& recorder_;
  std::map<std::string, std::shared_ptr<SimClass>, std::less<>> classes_;
};

}  // namespace tessel::sim
