#pragma once

// A bare simulated host for the substitute host's own tests: no library is
// loaded, so nothing but the test reacts to what the host does.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/action_target.h"
#include "host/view.h"
#include "sim/sim_host.h"
#include "sim/sim_view.h"
#include "sim/world_config.h"

namespace tessel::sim::testing {

// Every action a target receives, with the host time it came at.
class ActionLog : public host::ActionTarget {
 public:
  explicit ActionLog(const SimHost& host) : host_(host) {}
  struct Call {
    std::string selector;
    const host::Object* sender;
    double time;
  };
  void performAction(std::string_view selector, const host::Ref<host::Object>& sender) noexcept override {
    calls.push_back({std::string(selector), sender.get(), host_.time()});
  }
  std::vector<Call> calls;

 private:
  const SimHost& host_;
};

// A view delegate that counts its layout passes.
class LayoutCounter : public host::ViewDelegate {
 public:
  void layoutSubviews() noexcept override { ++passes; }
  int passes = 0;
};

inline std::shared_ptr<SimView> viewOf(const host::Ref<host::View>& view) {
  auto* v = simView(view);
  return v ? v->self<SimView>() : nullptr;
}

}  // namespace tessel::sim::testing
