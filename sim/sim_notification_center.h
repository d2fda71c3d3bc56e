#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/notification_center.h"
#include "sim/library_objects.h"

namespace tessel::sim {

// `NSNotification`.
class SimNotification : public host::Notification {
 public:
  SimNotification(std::string name, host::Ref<host::Dictionary> userInfo)
      : name_(std::move(name)), userInfo_(std::move(userInfo)) {}

  // |host::Notification|
  host::String name() const override { return name_; }
  host::Ref<host::Dictionary> userInfo() const override { return userInfo_; }

 private:
  std::string name_;
  host::Ref<host::Dictionary> userInfo_;
};

// `NSNotificationCenter` `defaultCenter`: observers by name, not kept alive.
class SimNotificationCenter : public host::NotificationCenter {
 public:
  // |host::NotificationCenter|
  void addObserverSelectorNameObject(const host::Ref<host::Object>& observer, const host::ControllerAction& selector,
                                     const host::String& name, const host::Ref<host::Object>& object) override;
  void removeObserverNameObject(const host::Ref<host::Object>& observer, const host::String& name,
                                const host::Ref<host::Object>& object) override;

  // Delivers a notification to every live observer of its name (or of all names).
  void post(const std::string& name, host::Ref<host::Dictionary> userInfo);
  // The names observed now, one entry per registration of a live observer.
  std::vector<std::string> observedNames() const;

 private:
  struct Observer {
    TargetAction targetAction;
    host::String name;
    host::Ref<host::Object> object;
  };
  std::vector<Observer> observers_;
};

// The cross-process centre: callbacks by name.
class SimDarwinNotifyCenter : public host::DarwinNotifyCenter {
 public:
  // |host::DarwinNotifyCenter|
  void addObserver(host::Block callback, const host::String& name, std::int64_t suspensionBehavior) override;

  void post(const std::string& name);
  std::vector<std::string> observedNames() const;

 private:
  struct Observer {
    host::Block callback;
    std::string name;
  };
  std::vector<Observer> observers_;
};

}  // namespace tessel::sim
