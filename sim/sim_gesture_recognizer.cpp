#include "sim/sim_gesture_recognizer.h"

#include "sim/sim_view.h"

namespace tessel::sim {

SimGestureRecognizer::SimGestureRecognizer(SimHost& host, std::shared_ptr<SimClass> cls, Kind kind,
                                           TargetAction targetAction)
    : SimObject(host, std::move(cls)),
      kind_(kind),
      targetAction_(std::move(targetAction)),
      taps_(kind == Kind::longPress ? 0 : 1) {}

host::Ref<host::View> SimGestureRecognizer::view() const { return host::Ref<host::View>(view_.lock()); }

void SimGestureRecognizer::sendAction() { targetAction_.send(host::Ref<host::Object>(self<SimObject>())); }

nlohmann::json SimGestureRecognizer::describe() const {
  switch (kind_) {
    case Kind::swipe:
      return {{"kind", "swipe"}, {"direction", direction_}, {"touches", touches_}};
    case Kind::tap:
      return {{"kind", "tap"}, {"taps", taps_}, {"touches", touches_}};
    case Kind::longPress:
      return {{"kind", "longPress"}, {"taps", taps_}, {"touches", touches_}};
  }
  return {};
}

}  // namespace tessel::sim
