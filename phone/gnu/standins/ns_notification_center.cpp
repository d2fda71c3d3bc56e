#include <algorithm>
#include <cstdint>
#include <vector>

#include "phone/gnu/standins/class_definitions.h"
#include "phone/gnu/standins/notification.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

// The centre keeps neither its observers nor the objects they watch alive,
// as the host's does not.
struct Observation {
  std::uint64_t number;
  id observer;
  SEL selector;
  Strong name;  // nil: every name
  id object;    // nil: every sender
};

struct Observations {
  std::vector<Observation> list;
  std::uint64_t added = 0;
};

Observations& observationsOf(id center) {
  if (auto* observations = findOwned<Observations>(center)) return *observations;
  return *attachOwned<Observations>(center);
}

bool sameName(id a, id b) { return a == b || (a != nullptr && send<BOOL>(a, "isEqual:"_sel, b)); }

// A nil name or object in `pattern` matches any.
bool matches(const Observation& pattern, id name, id object) {
  return (!pattern.name || sameName(pattern.name.get(), name)) &&
         (pattern.object == nullptr || pattern.object == object);
}

void addObserver(id center, id observer, SEL selector, id name, id object) {
  if (observer == nullptr) return;
  Observations& observations = observationsOf(center);
  observations.list.push_back({++observations.added, observer, selector, Strong::retain(name), object});
}

void removeObserver(id center, id observer, id name, id object) {
  std::erase_if(observationsOf(center).list, [&](const Observation& observation) {
    return observation.observer == observer && (name == nullptr || sameName(observation.name.get(), name)) &&
           (object == nullptr || observation.object == object);
  });
}

void post(id center, id name, id object) {
  Strong notification = makeNotification(name, object);
  std::vector<std::uint64_t> due;
  for (const Observation& observation : observationsOf(center).list) {
    if (matches(observation, name, object)) due.push_back(observation.number);
  }
  // An observer removed by an earlier one is not called.
  for (std::uint64_t number : due) {
    const auto& list = observationsOf(center).list;
    auto found = std::find_if(list.begin(), list.end(), [&](const Observation& o) { return o.number == number; });
    if (found == list.end()) continue;
    const id observer = found->observer;
    const SEL selector = found->selector;
    send<void>(observer, selector, notification.get());
  }
}

}  // namespace

Class defineNSNotificationCenter(Class nsObject) {
  ClassBuilder builder("NSNotificationCenter", nsObject);
  builder.addClassMethod("defaultCenter"_sel, [](Class self) {
    // Lives as long as the process, as the host's does.
    static const id center = sendToClass<id>(self, "new"_sel);
    return center;
  });
  builder.addMethod("addObserver:selector:name:object:"_sel,
                    [](id self, id observer, SEL selector, id name, id object) {
                      addObserver(self, observer, selector, name, object);
                    });
  builder.addMethod("removeObserver:name:object:"_sel,
                    [](id self, id observer, id name, id object) { removeObserver(self, observer, name, object); });
  builder.addMethod("removeObserver:"_sel,
                    [](id self, id observer) { removeObserver(self, observer, nullptr, nullptr); });
  builder.addMethod("postNotificationName:object:"_sel, [](id self, id name, id object) { post(self, name, object); });
  return builder.registerClass();
}

}  // namespace tessel::objc::gnu
