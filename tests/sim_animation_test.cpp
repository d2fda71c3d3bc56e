// Block animations: what is recorded, when completions run and with which
// flag, and the values on screen in between.

#include <gtest/gtest.h>

#include "sim/ease.h"
#include "sim/sim_animator.h"
#include "sim_test_host.h"

namespace tessel::sim::testing {
namespace {

using host::Rect;

class Animations : public ::testing::Test {
 protected:
  SimHost host{WorldConfig{}, ""};
  host::Ref<host::View> view = host.makeView({0, 0, 100, 100});
  std::vector<std::pair<bool, double>> completions;
  std::function<void(bool)> noteCompletion() {
    return [this](bool finished) { completions.emplace_back(finished, host.time()); };
  }
  const std::vector<std::shared_ptr<AnimationRecord>>& records() { return host.simAnimator().records(); }
  void SetUp() override { host.window()->addSubview(view); }
};

TEST_F(Animations, EveryPropertySetInTheBlockIsRecordedAndTheModelChangesAtOnce) {
  host.advanceTo(1);
  host.animator()->animateWithDuration(
      0.3,
      [&] {
        view->setFrame({10, 20, 100, 50});
        view->setAlpha(0.5);
        view->setCenter({100, 100});
      },
      noteCompletion());
  EXPECT_EQ(view->frame(), (Rect{50, 75, 100, 50}));
  EXPECT_EQ(view->alpha(), 0.5);

  ASSERT_EQ(records().size(), 2u) << "a second change of the frame in one block is one animation";
  const auto& frame = *records()[0];
  EXPECT_EQ(frame.target, viewOf(view)->id());
  EXPECT_EQ(frame.fromFrame, (Rect{0, 0, 100, 100}));
  EXPECT_EQ(frame.toFrame, (Rect{50, 75, 100, 50}));
  EXPECT_EQ(frame.start, 1);
  EXPECT_EQ(frame.duration, 0.3);
  EXPECT_EQ(records()[1]->fromAlpha, 1);
  EXPECT_EQ(records()[1]->toAlpha, 0.5);
  EXPECT_EQ(records()[1]->group, frame.group);
  EXPECT_FALSE(frame.finished.has_value());

  host.advanceTo(1.29);
  EXPECT_TRUE(completions.empty());
  host.advanceTo(2);
  ASSERT_EQ(completions.size(), 1u);
  EXPECT_TRUE(completions[0].first);
  EXPECT_NEAR(completions[0].second, 1.3, 1e-12);
  EXPECT_EQ(frame.finished, true);
}

TEST_F(Animations, LeavingTheWindowCutsAnAnimationShort) {
  host.animator()->animateWithDuration(
      0.425, [&] { view->setAlpha(0); }, noteCompletion());
  host.advanceTo(0.375);
  view->removeFromSuperview();
  host.advanceTo(1);
  ASSERT_EQ(completions.size(), 1u);
  EXPECT_FALSE(completions[0].first);
  EXPECT_NEAR(completions[0].second, 0.375, 1e-12) << "the completion does not wait for the planned end";
  EXPECT_EQ(records()[0]->finished, false);
  EXPECT_EQ(viewOf(view)->presentationAlpha(0.4), 0) << "a cut animation shows the model value";
}

TEST_F(Animations, ANewerAnimationOfTheSamePropertyReplacesTheOlder) {
  auto other = host.makeView({});
  host.window()->addSubview(other);
  host.animator()->animateWithDuration(
      0.5,
      [&] {
        view->setAlpha(0);
        other->setAlpha(0);
      },
      noteCompletion());
  host.advanceTo(0.1);
  host.animator()->animateWithDuration(
      0.5, [&] { view->setAlpha(1); }, noteCompletion());
  host.advanceTo(2);

  ASSERT_EQ(records().size(), 3u);
  EXPECT_EQ(records()[0]->finished, false);
  EXPECT_EQ(records()[1]->finished, true) << "the other view's animation is untouched";
  EXPECT_EQ(records()[2]->finished, true);
  ASSERT_EQ(completions.size(), 2u);
  EXPECT_EQ(completions[0], std::make_pair(false, 0.5)) << "part of the first group was cut short";
  EXPECT_TRUE(completions[1].first);
}

TEST_F(Animations, TheValueOnScreenFollowsTheEaseInEaseOutCurve) {
  host.animator()->animateWithDuration(1.0, [&] { view->setFrame({100, 0, 100, 100}); });
  auto* v = viewOf(view).get();
  EXPECT_EQ(v->presentationFrame(0).x, 0);
  EXPECT_NEAR(v->presentationFrame(0.25).x, 12.916, 1e-3);
  EXPECT_NEAR(v->presentationFrame(0.5).x, 50, 1e-9);
  EXPECT_NEAR(v->presentationFrame(0.75).x, 87.084, 1e-3);
  EXPECT_EQ(v->presentationFrame(1.0).x, 100);
  EXPECT_EQ(v->presentationAlpha(0.5), 1) << "an unanimated property shows its model value";
  EXPECT_LT(easeInEaseOut(0.1), 0.1);
  EXPECT_GT(easeInEaseOut(0.9), 0.9);
}

TEST_F(Animations, ABlockThatChangesNothingCompletesOnTheNextTurn) {
  host.advanceTo(3);
  host.animator()->animateWithDuration(
      0.4, [] {}, noteCompletion());
  EXPECT_TRUE(completions.empty());
  host.advanceTo(3);
  EXPECT_EQ(completions, (std::vector<std::pair<bool, double>>{{true, 3.0}}));
  EXPECT_TRUE(records().empty());
}

TEST_F(Animations, ANestedBlockIsAGroupOfItsOwn) {
  host.animator()->animateWithDuration(0.5, [&] {
    view->setAlpha(0.2);
    host.animator()->animateWithDuration(0.25, [&] { view->setFrame({1, 1, 100, 100}); });
  });
  ASSERT_EQ(records().size(), 2u);
  EXPECT_NE(records()[0]->group, records()[1]->group);
  EXPECT_EQ(records()[1]->duration, 0.25);
  EXPECT_EQ(records()[0]->toJson()["property"], "alpha");
  EXPECT_EQ(records()[1]->toJson()["to"], (nlohmann::json{1, 1, 100, 100}));
}

}  // namespace
}  // namespace tessel::sim::testing
