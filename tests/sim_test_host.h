#pragma once

// A bare simulated host for the substitute host's own tests: no library is
// loaded, so nothing but the test reacts to what the host does.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/host.h"
#include "sim/sim_host.h"
#include "sim/sim_view.h"
#include "sim/world_config.h"

namespace tessel::sim::testing {

// Every action a controller object receives, with the host time it came at.
class ActionLog : public host::ControllerDelegate {
 public:
  explicit ActionLog(const SimHost& host) : host_(host) {}
  struct Call {
    std::string selector;
    const void* sender;  // the sender's identity
    double time;
  };
  std::vector<Call> calls;

 protected:
  void iconHeld(const host::Ref<host::GestureRecognizer>& sender) override {
    record(host::action::handleIconHeldFromSender, host::identityOf(sender));
  }
  void removeViews(const host::Ref<host::View>& view) override {
    record(host::action::removeTesselViewsFromView, host::identityOf(view));
  }
  void keyboardChanged(const host::Ref<host::Notification>& notification) override {
    record(host::action::keyboardWillShowOrHide, host::identityOf(notification));
  }

 private:
  void record(const host::ControllerAction& action, const void* sender) {
    calls.push_back({std::string(action.selector), sender, host_.time()});
  }
  const SimHost& host_;
};

// A view delegate that counts its layout passes.
class LayoutCounter : public host::ViewDelegate {
 public:
  int passes = 0;

 protected:
  void layout() override { ++passes; }
  std::int64_t numberOfRows(const host::Ref<host::TableView>&, std::int64_t) override { return 0; }
  host::Ref<host::TableViewCell> cellForRow(const host::Ref<host::TableView>&, const host::IndexPath&) override {
    return {};
  }
  void didSelectRow(const host::Ref<host::TableView>&, const host::IndexPath&) override {}
};

inline std::shared_ptr<SimView> viewOf(const host::Ref<host::View>& view) {
  auto* v = simView(view);
  return v ? v->self<SimView>() : nullptr;
}

}  // namespace tessel::sim::testing
