#include "sim/sim_runtime.h"

#include "sim/class_catalogue.h"
#include "sim/recorder.h"
#include "sim/sim_object.h"

namespace tessel::sim {

SimRuntime::SimRuntime(Recorder& recorder) : recorder_(recorder) { declareHostClasses(*this); }

host::Ref<host::Class> SimRuntime::getClass(std::string_view name) { return host::Ref<host::Class>(find(name)); }

host::Ref<host::Class> SimRuntime::registerClass(std::string_view name, const host::Ref<host::Class>& superclass) {
  if (auto existing = find(name)) return host::Ref<host::Class>(existing);
  auto parent = std::dynamic_pointer_cast<SimClass>(superclass.shared());
  auto cls = std::make_shared<SimClass>(std::string(name), parent);
  classes_.emplace(std::string(name), cls);
  return host::Ref<host::Class>(cls);
}

std::any SimRuntime::hookMessage(const host::Ref<host::Class>& cls, std::string_view selector, std::any replacement) {
  auto* target = dynamic_cast<SimClass*>(cls.get());
  if (!target) return {};
  recorder_.hookInstalled(target->name(), selector);
  return target->replaceMethod(selector, std::move(replacement));
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
