#include "sim/sim_button.h"

namespace tessel::sim {

void SimButton::sendActions(std::uint64_t events) {
  auto keep = self<SimButton>();
  auto actions = actions_;  // an action may add or remove pairs
  for (const auto& action : actions) {
    if (!(action.events & events)) continue;
    action.targetAction.send(host::Ref<host::Object>(keep));
  }
}

nlohmann::json SimButton::describeActions() const {
  auto list = nlohmann::json::array();
  for (const auto& action : actions_)
    list.push_back({{"selector", std::string(action.targetAction.selector())}, {"events", action.events}});
  return list;
}

}  // namespace tessel::sim
