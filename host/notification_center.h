#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "host/block.h"
#include "host/library_delegates.h"
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
// posted notification is sent to the observer as the action's message, with
// the notification as sender. Observers are told apart by identity.
class NotificationCenter : public virtual Object {
 public:
  virtual void addObserverSelectorNameObject(const Ref<Object>& /*observer*/, const ControllerAction& /*selector*/,
                                             const String& /*name*/, const Ref<Object>& /*object*/) {}
  virtual void removeObserverNameObject(const Ref<Object>& /*observer*/, const String& /*name*/,
                                        const Ref<Object>& /*object*/) {}
};

// `CFNotificationCenterGetDarwinNotifyCenter`: notifications across processes.
class DarwinNotifyCenter : public virtual Object {
 public:
  // `CFNotificationCenterAddObserver` with no observer and no object.
  virtual void addObserver(Block /*callback*/, const String& /*name*/, std::int64_t /*suspensionBehavior*/) {}
};

}  // namespace tessel::host
