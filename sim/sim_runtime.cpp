#include "sim/sim_runtime.h"

#include "sim/class_catalogue.h"
#include "sim/recorder.h"
#include "sim/sim_object.h"

namespace tessel::sim {

SimRuntime::SimRuntime(Recorder& recorder) : recorder_(recorder) { declareHostClasses(*this); }

host::Ref<host::Class> SimRuntime::getClass(std::string_view name) { return host::Ref<host::Class>(find(name)); }

std::any SimRuntime::replace(const host::Ref<host::Class>& cls, const host::MethodName& method, std::any replacement) {
  auto* target = dynamic_cast<SimClass*>(cls.get());
  if (!target) return {};
  recorder_.hookInstalled(target->name(), method.selector);
  return target->replaceMethod(method.selector, std::move(replacement));
}

host::Ref<host::Object> SimRuntime::instanceVariable(const host::Ref<host::Object>& object, std::string_view name) {
  const auto* simObject = dynamic_cast<const SimObject*>(object.get());
  return simObject ? simObject->instanceVariable(name) : host::Ref<host::Object>();
}

std::shared_ptr<SimClass> SimRuntime::find(std::string_view name) const {
  auto found = classes_.find(name);
  return found == classes_.end() ? nullptr : found->second;
}

std::shared_ptr<SimClass> SimRuntime::define(std::string_view name, std::string_view superclassName) {
  if (auto existing = find(name)) return existing;
  auto cls = std::make_shared<SimClass>(std::string(name), find(superclassName));
  classes_.emplace(std::string(name), cls);
  return cls;
}

}  // namespace tessel::sim
