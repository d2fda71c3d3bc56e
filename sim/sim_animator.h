#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/main_queue.h"
#include "sim/animation_record.h"
#include "sim/ended_animations.h"
#include "sim/virtual_clock.h"

namespace tessel::sim {

class Recorder;
class SimMainQueue;
class SimView;

// The toolkit's block animations. Inside a block every frame or alpha set on
// a view is recorded; the model value changes at once and the completion
// runs on the main queue when the group ends (finished) or when all of its
// records were cut short (not finished).
class SimAnimator : public host::Animator {
 public:
  SimAnimator(VirtualClock& clock, SimMainQueue& queue, Recorder& recorder)
      : clock_(clock), queue_(queue), recorder_(recorder) {}

  // |host::Animator|
  void animateWithDuration(double duration, host::Block animations, host::Completion completion = {}) override;

  // Called by views when a property changes; records it when inside a block.
  void frameChanged(SimView& view, const host::Rect& from, const host::Rect& to);
  void alphaChanged(SimView& view, double from, double to);
  // The view has left the window: its running animations stop short.
  void viewLeftWindow(SimView& view);

  // The records, in order; once keepEndedOnDisk() was asked for, only those
  // that have not ended (or that follow one that has not).
  const std::vector<std::shared_ptr<AnimationRecord>>& records() const { return records_; }
  // From now on, ended records leave records() for a temporary file, so
  // that a long run does not hold them all.
  void keepEndedOnDisk();
  // Every record ever made, ended ones first, as the dump lists them.
  void forEachRecord(const std::function<void(const nlohmann::json&)>& visit) const;

 private:
  // The record of this property in the open group, made when `fresh`.
  std::shared_ptr<AnimationRecord> record(SimView& view, AnimationRecord::Property property, bool& fresh);
  void cutShort(AnimationRecord& record);
  void complete(const std::shared_ptr<AnimationGroup>& group, bool finished);
  void moveEndedToDisk();

  VirtualClock& clock_;
  SimMainQueue& queue_;
  Recorder& recorder_;
  int lastGroup_ = 0;
  std::vector<std::shared_ptr<AnimationGroup>> open_;
  std::vector<std::shared_ptr<AnimationRecord>> records_;
  std::unique_ptr<EndedAnimations> ended_;
};

}  // namespace tessel::sim
