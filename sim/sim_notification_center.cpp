#include "sim/sim_notification_center.h"

#include <algorithm>

namespace tessel::sim {

void SimNotificationCenter::addObserverSelectorNameObject(const host::Ref<host::Object>& observer,
                                                          const host::ControllerAction& selector,
                                                          const host::String& name,
                                                          const host::Ref<host::Object>& object) {
  if (!observer) return;
  observers_.push_back({TargetAction(observer, selector), name, object});
}

void SimNotificationCenter::removeObserverNameObject(const host::Ref<host::Object>& observer, const host::String& name,
                                                     const host::Ref<host::Object>& object) {
  if (!observer) return;
  std::erase_if(observers_, [&](const Observer& o) {
    return o.targetAction.targets(observer) && (!name || o.name == name) && (!object || o.object == object);
  });
}

void SimNotificationCenter::post(const std::string& name, host::Ref<host::Dictionary> userInfo) {
  host::Ref<host::Object> notification(std::make_shared<SimNotification>(name, std::move(userInfo)));
  auto observers = observers_;  // an observer may remove itself or others
  for (const auto& o : observers) {
    if (o.name && *o.name != name) continue;
    bool stillRegistered = std::any_of(observers_.begin(), observers_.end(), [&](const Observer& current) {
      return current.targetAction.sameAs(o.targetAction) && current.name == o.name;
    });
    if (!stillRegistered) continue;
    o.targetAction.send(notification);
  }
}

std::vector<std::string> SimNotificationCenter::observedNames() const {
  std::vector<std::string> names;
  for (const auto& o : observers_) {
    if (o.targetAction.targetAlive()) names.push_back(o.name.value_or("*"));
  }
  return names;
}

void SimDarwinNotifyCenter::addObserver(host::Block callback, const host::String& name, std::int64_t) {
  if (!callback || !name) return;
  observers_.push_back({std::move(callback), *name});
}

void SimDarwinNotifyCenter::post(const std::string& name) {
  auto observers = observers_;
  for (const auto& o : observers) {
    if (o.name == name) o.callback();
  }
}

std::vector<std::string> SimDarwinNotifyCenter::observedNames() const {
  std::vector<std::string> names;
  for (const auto& o : observers_) names.push_back(o.name);
  return names;
}

}  // namespace tessel::sim
