#include "sim/sim_object.h"

#include <utility>

#include "sim/sim_class.h"

namespace tessel::sim {

SimObject::SimObject(SimHost& host, std::shared_ptr<SimClass> cls) : host_(&host), class_(std::move(cls)) {}

host::Ref<host::Class> SimObject::objectClass() const { return host::Ref<host::Class>(class_); }

bool SimObject::isKindOfClass(const host::Ref<host::Class>& cls) const {
  return class_ && class_->inheritsFrom(dynamic_cast<const SimClass*>(cls.get()));
}

bool SimObject::respondsToSelector(std::string_view selector) const {
  return class_ && class_->instancesRespondTo(selector);
}

std::string SimObject::className() const { return class_ ? class_->name() : std::string(); }

bool SimObject::isKindOf(std::string_view className) const { return class_ && class_->inheritsFrom(className); }

std::string idOf(const host::Object* object) {
  const auto* simObject = dynamic_cast<const SimObject*>(object);
  return simObject ? simObject->id() : std::string();
}

}  // namespace tessel::sim
