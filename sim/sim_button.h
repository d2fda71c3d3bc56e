#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/platform_constants.h"
#include "sim/library_objects.h"
#include "sim/sim_view.h"

namespace tessel::sim {

// `UIButton`: target-action pairs by control events; targets are not kept alive.
class SimButton : public SimView, public virtual host::Button {
 public:
  static constexpr std::uint64_t kTouchUpInside = host::platform::kControlEventTouchUpInside;

  SimButton(SimHost& host, std::shared_ptr<SimClass> cls, std::int64_t type)
      : SimView(host, std::move(cls), {}), type_(type) {}

  // |host::Button|
  void addTargetActionForControlEvents(const host::Ref<host::Object>& target, const host::ControllerAction& action,
                                       std::uint64_t events) override {
    actions_.push_back({TargetAction(target, action), events});
  }

  std::int64_t buttonType() const { return type_; }
  // Sends the action of every pair registered for any of `events`.
  void sendActions(std::uint64_t events);
  nlohmann::json describeActions() const;

 private:
  struct Action {
    TargetAction targetAction;
    std::uint64_t events;
  };
  std::int64_t type_;
  std::vector<Action> actions_;
};

}  // namespace tessel::sim
