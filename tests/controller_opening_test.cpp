// The opening as it is played: recorded frames, animations with their
// durations and start times, and where the page's icons end up.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

constexpr double kPanelHeight = 568 / 3.5 - 20;

void expectRect(const json& value, const host::Rect& expected) {
  auto r = rectOf(value);
  EXPECT_NEAR(r.x, expected.x, 1e-9);
  EXPECT_NEAR(r.y, expected.y, 1e-9);
  EXPECT_NEAR(r.width, expected.width, 1e-9);
  EXPECT_NEAR(r.height, expected.height, 1e-9);
}

// Mail's panel, opened at t = 1 and settled.
json openMail(sim::WorldConfig config = smallPhone()) {
  Phone phone(config);
  phone.open(kMail);
  return phone.dump();
}

TEST(Opening, RecordsItsFramesAndPlaysThePanelArrowAndCopyOnTheirTimeline) {
  auto dump = openMail();
  const auto& shared = dump.at("shared");
  double stripY = 120 + kPanelHeight * 0.5 + 10;
  expectRect(shared.at("oldTesselFrame"), {0, 115, 320, kPanelHeight});  // 5 points above where it was built
  expectRect(shared.at("oldArrowFrame"), {0, -5, 320, 568});
  expectRect(shared.at("newTesselFrame"), {0, stripY, 320, 568 / 20.0});
  expectRect(shared.at("intermediateTesselFrame"), {0, 115, 320, 568 / 20.0});
  expectRect(shared.at("intermediateArrowFrame"), {0, -5 + (stripY - 115), 320, 568});

  const auto& panel = dump.at("controller").at("genericView");
  auto frames = animationsOf(dump, panel, "frame");
  ASSERT_EQ(frames.size(), 2u);
  // The strip grows to the whole panel at its rest height, then settles.
  EXPECT_EQ(frames[0].at("start"), 1.0);
  EXPECT_EQ(frames[0].at("duration"), 0.325);
  expectRect(frames[0].at("from"), rectOf(shared.at("newTesselFrame")));
  expectRect(frames[0].at("to"), {0, 115, 320, kPanelHeight});
  EXPECT_NEAR(frames[1].at("start").get<double>(), 1.325, 1e-9);
  EXPECT_EQ(frames[1].at("duration"), 0.25);
  expectRect(frames[1].at("to"), rectOf(shared.at("oldTesselFrame")));
  auto alpha = animationsOf(dump, panel, "alpha");
  ASSERT_FALSE(alpha.empty());
  EXPECT_EQ(alpha[0].at("from"), 0);
  EXPECT_EQ(alpha[0].at("to"), 1);

  auto arrow = animationsOf(dump, shared.at("arrowView"), "frame");
  ASSERT_FALSE(arrow.empty());
  expectRect(arrow[0].at("from"), rectOf(shared.at("intermediateArrowFrame")));
  expectRect(arrow[0].at("to"), rectOf(shared.at("oldArrowFrame")));

  auto copyAlpha = animationsOf(dump, shared.at("iconView"), "alpha");
  ASSERT_EQ(copyAlpha.size(), 1u);
  EXPECT_NEAR(copyAlpha[0].at("start").get<double>(), 1.2, 1e-9);
  EXPECT_EQ(copyAlpha[0].at("duration"), 0.25);
  EXPECT_EQ(copyAlpha[0].at("to"), 1);
}

TEST(Opening, PageIconsDimAndMoveOutOfThePanelsWay) {
  auto config = smallPhone();
  config.frames[kMaps] = {92, 100, 60, 74};    // the held icon's row rises
  config.frames[kNotes] = {168, 300, 60, 74};  // rows below it drop
  auto dump = openMail(config);
  double rise = (100 + 74 + 30) - 120 + 20;
  double drop = (120 + kPanelHeight) - (100 + 74 + 30) + 20;
  auto expectMoved = [&](const char* app, double y, double alpha) {
    const auto& view = viewOf(dump, json(iconViewId(dump, app)));
    EXPECT_NEAR(rectOf(view.at("frame")).y, y, 1e-9) << app;
    EXPECT_EQ(view.at("alpha"), alpha) << app;
  };
  expectMoved(kMail, 100 - rise, 1.0);  // the held icon moves but keeps its alpha
  expectMoved(kMaps, 100 - rise, 0.5);
  expectMoved(kNotes, 300 + drop, 0.5);
  EXPECT_NEAR(rectOf(viewOf(dump, dump.at("shared").at("iconView")).at("frame")).y, 118.5 - rise, 1e-9);
}

TEST(Opening, APanelOutOfTheWindowIsMovedBackOnceSettled) {
  // Near the bottom: rest y 455, past the window's 568 by the overhang; up
  // by that and half the icon.
  auto low = smallPhone();
  low.frames[kMail] = {16, 440, 60, 74};
  auto dump = openMail(low);
  auto frames = animationsOf(dump, dump.at("controller").at("genericView"), "frame");
  ASSERT_EQ(frames.size(), 3u);
  EXPECT_NEAR(frames[2].at("start").get<double>(), 1.575, 1e-9);
  EXPECT_EQ(frames[2].at("duration"), 0.375);
  expectRect(frames[2].at("to"), {0, 455 - (74 * 0.5 + (455 + kPanelHeight - 568)), 320, kPanelHeight});

  // At the top: the held icon has risen to -124, above -15; everything goes down.
  auto high = smallPhone();
  high.frames[kMail] = {16, -20, 60, 74};
  dump = openMail(high);
  expectRect(viewOf(dump, dump.at("controller").at("genericView")).at("frame"),
             {0, -5 + (-5 + 74 * 1.5), 320, kPanelHeight});
}

}  // namespace
}  // namespace tessel::testing
