#include "sim/library_objects.h"

#include "host/host.h"
#include "sim/sim_custom_view.h"

namespace tessel::sim {

void TargetAction::send(const host::Ref<host::Object>& sender) const {
  auto target = target_.lock();
  if (auto* controller = dynamic_cast<SimControllerObject*>(target.get())) {
    if (auto* delegate = controller->delegate()) (delegate->*action_->deliver)(sender);
  }
}

host::ViewDelegate* viewDelegateOf(const host::Ref<host::Object>& object) {
  auto* view = dynamic_cast<SimCustomView*>(object.get());
  return view ? view->delegate().get() : nullptr;
}

}  // namespace tessel::sim
