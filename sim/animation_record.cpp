#include "sim/animation_record.h"

#include "sim/ease.h"
#include "sim/json_values.h"

namespace tessel::sim {

namespace {

double mix(double from, double to, double p) { return from + (to - from) * p; }

}  // namespace

bool AnimationRecord::runningAt(double t) const {
  if (t < start || t >= end()) return false;
  return !(finished == false && cutAt <= t);
}

double AnimationRecord::progressAt(double t) const {
  if (duration <= 0) return 1;
  return easeInEaseOut((t - start) / duration);
}

host::Rect AnimationRecord::frameAt(double t) const {
  double p = progressAt(t);
  return {mix(fromFrame.x, toFrame.x, p), mix(fromFrame.y, toFrame.y, p), mix(fromFrame.width, toFrame.width, p),
          mix(fromFrame.height, toFrame.height, p)};
}

double AnimationRecord::alphaAt(double t) const { return mix(fromAlpha, toAlpha, progressAt(t)); }

nlohmann::json AnimationRecord::toJson() const {
  bool isFrame = property == Property::frame;
  return {{"group", group ? group->id : 0},
          {"target", target},
          {"property", isFrame ? "frame" : "alpha"},
          {"from", isFrame ? toJsonValue(fromFrame) : nlohmann::json(fromAlpha)},
          {"to", isFrame ? toJsonValue(toFrame) : nlohmann::json(toAlpha)},
          {"start", start},
          {"duration", duration},
          {"finished", finished ? nlohmann::json(*finished) : nlohmann::json(nullptr)}};
}

}  // namespace tessel::sim
