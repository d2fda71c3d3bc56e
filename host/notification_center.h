#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "host/action_target.h"
#include "host/string.h"
#include "host/value.h"

namespace tessel::host {

// `NSNotification`.
class Notification : public virtual Object {
 public:
  virtual String name() const { return {}; }
  virtual Ref<Dictionary> userInfo() const { return {}; }
};

// `NSNotificationCenter` `defaultCenter`. Observers are not kept alive; a
// posted notification reaches `performAction` with the observer's selector
// and the notification as sender.
class NotificationCenter : public virtual Object {
 public:
  virtual void addObserverSelectorNameObject(std::weak_ptr<ActionTarget> /*observer*/, std::string_view /*selector*/,
                                             const String& /*name*/, const Ref<Object>& /*object*/) {}
  virtual void removeObserverNameObject(const ActionTarget* /*observer*/, const String& /*name*/,
                                        const Ref<Object>& /*object*/) {}
};

// `CFNotificationCenterGetDarwinNotifyCenter`: notifications across processes.
class DarwinNotifyCenter : public virtual Object {
 public:
  // `CFNotificationCenterAddObserver` with no observer and no object.
  virtual void addObserver(std::function<void()> /*callback*/, const String& /*name*/,
                           std::int64_t /*suspensionBehavior*/) {}
};

}  // namespace tessel::host
