#pragma once

#include <memory>
#include <string_view>

#include "host/library_delegates.h"
#include "sim/sim_object.h"

namespace tessel::sim {

// An object of the library's controller class; it keeps the library's
// delegate behind it alive.
class SimControllerObject : public SimObject {
 public:
  SimControllerObject(SimHost& host, std::shared_ptr<SimClass> cls, std::shared_ptr<host::ControllerDelegate> delegate)
      : SimObject(host, std::move(cls)), delegate_(std::move(delegate)) {}
  host::ControllerDelegate* delegate() const { return delegate_.get(); }

 private:
  std::shared_ptr<host::ControllerDelegate> delegate_;
};

// A target-action pair: the target is not kept alive; the action reaches the
// library's delegate behind the target, as the runtime would send it.
class TargetAction {
 public:
  TargetAction(const host::Ref<host::Object>& target, const host::ControllerAction& action)
      : target_(target), action_(&action) {}

  void send(const host::Ref<host::Object>& sender) const;
  bool targetAlive() const { return static_cast<bool>(target_); }
  bool targets(const host::Ref<host::Object>& object) const { return target_.lock() == object; }
  std::string_view selector() const { return action_->selector; }
  // The same action to the same (live) target.
  bool sameAs(const TargetAction& other) const {
    return action_ == other.action_ && target_.lock() == other.target_.lock();
  }

 private:
  host::Weak<host::Object> target_;
  const host::ControllerAction* action_;
};

// The library's view delegate behind a view of its view class, or nothing.
host::ViewDelegate* viewDelegateOf(const host::Ref<host::Object>& object);

}  // namespace tessel::sim
