#pragma once

#include <string_view>

#include "host/object.h"

namespace tessel::host {

// The target of a target-action pair (a recognizer, a control, a
// notification observer). The host sends the action's selector and the
// sender; the library object dispatches on the selector.
class ActionTarget {
 public:
  virtual ~ActionTarget() = default;
  virtual void performAction(std::string_view selector, const Ref<Object>& sender) noexcept = 0;
};

}  // namespace tessel::host
