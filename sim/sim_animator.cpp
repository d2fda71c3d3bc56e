#include "sim/sim_animator.h"

#include <algorithm>

#include "sim/recorder.h"
#include "sim/sim_main_queue.h"
#include "sim/sim_view.h"

namespace tessel::sim {

void SimAnimator::animateWithDuration(double duration, host::Block animations, host::Completion completion) {
  auto group = std::make_shared<AnimationGroup>();
  group->id = ++lastGroup_;
  group->start = clock_.now;
  group->duration = duration;
  group->completion = std::move(completion);
  open_.push_back(group);
  if (animations) animations();
  open_.pop_back();
  if (group->records.empty()) {
    // Nothing to animate: the toolkit reports the block finished right away.
    group->done = true;
    queue_.schedule(clock_.now, [completion = std::move(group->completion)] {
      if (completion) completion(true);
    });
    return;
  }
  queue_.schedule(group->start + duration, [this, group] { complete(group, !group->cutShort); });
}

std::shared_ptr<AnimationRecord> SimAnimator::record(SimView& view, AnimationRecord::Property property, bool& fresh) {
  fresh = false;
  if (open_.empty() || open_.back()->duration <= 0) return nullptr;
  const auto& group = open_.back();
  // A second change of the same property in one block only moves its end value.
  for (const auto& earlier : view.animationRecords()) {
    auto existing = earlier.lock();
    if (existing && existing->group == group && existing->property == property) return existing;
  }
  fresh = true;
  for (const auto& earlier : view.animationRecords()) {
    auto existing = earlier.lock();
    if (existing && existing->property == property && !existing->finished && existing->end() > clock_.now) {
      cutShort(*existing);
    }
  }
  auto made = std::make_shared<AnimationRecord>();
  made->group = group;
  made->view = view.self<SimView>();
  made->target = view.id();
  made->property = property;
  made->start = group->start;
  made->duration = group->duration;
  group->records.push_back(made);
  ++group->running;
  moveEndedToDisk();
  records_.push_back(made);
  view.addAnimationRecord(made);
  return made;
}

void SimAnimator::frameChanged(SimView& view, const host::Rect& from, const host::Rect& to) {
  bool fresh = false;
  auto made = record(view, AnimationRecord::Property::frame, fresh);
  if (!made) return;
  if (fresh) made->fromFrame = from;
  made->toFrame = to;
  recorder_.animation(made->toJson());
}

void SimAnimator::alphaChanged(SimView& view, double from, double to) {
  bool fresh = false;
  auto made = record(view, AnimationRecord::Property::alpha, fresh);
  if (!made) return;
  if (fresh) made->fromAlpha = from;
  made->toAlpha = to;
  recorder_.animation(made->toJson());
}

void SimAnimator::viewLeftWindow(SimView& view) {
  for (const auto& earlier : view.animationRecords()) {
    auto existing = earlier.lock();
    if (existing && !existing->finished && existing->end() > clock_.now) cutShort(*existing);
  }
}

void SimAnimator::cutShort(AnimationRecord& record) {
  record.finished = false;
  record.cutAt = clock_.now;
  auto group = record.group;
  group->cutShort = true;
  if (--group->running == 0 && !group->done) complete(group, false);
}

void SimAnimator::complete(const std::shared_ptr<AnimationGroup>& group, bool finished) {
  if (group->done) return;
  group->done = true;
  for (const auto& weak : group->records) {
    if (auto record = weak.lock(); record && !record->finished) record->finished = true;
  }
  auto completion = std::move(group->completion);
  group->completion = nullptr;
  if (!completion) return;
  if (finished) {
    completion(true);
  } else {
    queue_.schedule(clock_.now, [completion = std::move(completion)] { completion(false); });
  }
}

void SimAnimator::keepEndedOnDisk() {
  auto ended = std::make_unique<EndedAnimations>();
  if (ended->usable()) ended_ = std::move(ended);
}

void SimAnimator::moveEndedToDisk() {
  if (!ended_) return;
  // Only from the front, so that the order of the records is kept.
  auto firstRunning =
      std::find_if(records_.begin(), records_.end(), [](const auto& record) { return !record->finished.has_value(); });
  for (auto it = records_.begin(); it != firstRunning; ++it) ended_->add(**it);
  records_.erase(records_.begin(), firstRunning);
}

void SimAnimator::forEachRecord(const std::function<void(const nlohmann::json&)>& visit) const {
  if (ended_) ended_->forEach(visit);
  for (const auto& record : records_) visit(record->toJson());
}

}  // namespace tessel::sim
