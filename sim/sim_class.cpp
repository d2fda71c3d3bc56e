#include "sim/sim_class.h"

#include <utility>

namespace tessel::sim {

SimClass::SimClass(std::string name, std::shared_ptr<SimClass> superclass)
    : name_(std::move(name)), superclass_(std::move(superclass)) {}

bool SimClass::isSubclassOfClass(const host::Ref<host::Class>& cls) const {
  return inheritsFrom(dynamic_cast<const SimClass*>(cls.get()));
}

bool SimClass::inheritsFrom(const SimClass* other) const {
  if (!other) return false;
  for (const SimClass* c = this; c; c = c->superclass_.get()) {
    if (c == other) return true;
  }
  return false;
}

bool SimClass::inheritsFrom(std::string_view otherName) const {
  for (const SimClass* c = this; c; c = c->superclass_.get()) {
    if (c->name_ == otherName) return true;
  }
  return false;
}

void SimClass::declareSelectors(std::initializer_list<std::string_view> selectors) {
  for (auto selector : selectors) selectors_.emplace(selector);
}

bool SimClass::instancesRespondTo(std::string_view selector) const {
  for (const SimClass* c = this; c; c = c->superclass_.get()) {
    if (c->selectors_.count(selector) || c->methods_.count(selector)) return true;
  }
  return false;
}

const std::any* SimClass::findMethod(std::string_view selector) const {
  for (const SimClass* c = this; c; c = c->superclass_.get()) {
    auto found = c->methods_.find(selector);
    if (found != c->methods_.end()) return &found->second;
  }
  return nullptr;
}

void SimClass::setMethod(std::string_view selector, std::any implementation) {
  methods_.insert_or_assign(std::string(selector), std::move(implementation));
}

std::any SimClass::replaceMethod(std::string_view selector, std::any implementation) {
  const std::any* current = findMethod(selector);
  std::any previous = current ? *current : std::any();
  setMethod(selector, std::move(implementation));
  return previous;
}

}  // namespace tessel::sim
