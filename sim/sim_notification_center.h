#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/notification_center.h"

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
  void addObserverSelectorNameObject(std::weak_ptr<host::ActionTarget> observer, std::string_view selector,
                                     const host::String& name, const host::Ref<host::Object>& object) override;
  void removeObserverNameObject(const host::ActionTarget* observer, const host::String& name,
                                const host::Ref<host::Object>& object) override;

  // Delivers a notification to every live observer of its name (or of all names).
  void post(const std::string& name, host::Ref<host::Dictionary> userInfo);
  // The names observed now, one entry per registration of a live observer.
  std::vector<std::string> observedNames() const;

 private:
  struct Observer {
    std::weak_ptr<host::ActionTarget> target;
    const host::ActionTarget* identity;
    std::string selector;
    host::String name;
    host::Ref<host::Object> object;
  };
  std::vector<Observer> observers_;
};

// The cross-process centre: callbacks by name.
class SimDarwinNotifyCenter : public host::DarwinNotifyCenter {
 public:
  // |host::DarwinNotifyCenter|
  void addObserver(std::function<void()> callback, const host::String& name, std::int64_t suspensionBehavior) override;

  void post(const std::string& name);
  std::vector<std::string> observedNames() const;

 private:
  struct Observer {
    std::function<void()> callback;
    std::string name;
  };
  std::vector<Observer> observers_;
};

}  // namespace tessel::sim
