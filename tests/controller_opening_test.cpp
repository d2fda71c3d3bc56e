// The opening as it is played: recorded frames, animations, their durations
// and start times, and where the page's icons end up.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

constexpr double kPanelHeight = 568 / 3.5 - 20;
constexpr double kTolerance = 1e-9;

void expectRect(const json& value, const host::Rect& expected) {
  auto r = rectOf(value);
  EXPECT_NEAR(r.x, expected.x, kTolerance);
  EXPECT_NEAR(r.y, expected.y, kTolerance);
  EXPECT_NEAR(r.width, expected.width, kTolerance);
  EXPECT_NEAR(r.height, expected.height, kTolerance);
}

class Opening : public ::testing::Test {
 protected:
  // Opens Mail's panel at t = 1 and lets it settle.
  json openMail(sim::WorldConfig config = smallPhone()) {
    phone_ = std::make_unique<Phone>(config);
    phone_->world().advanceTo(1.0);
    phone_->open(kMail);
    return phone_->dump();
  }
  std::unique_ptr<Phone> phone_;
};

TEST_F(Opening, RecordsTheRestAndCollapsedFrames) {
  auto dump = openMail();
  const auto& shared = dump.at("shared");
  double stripY = 120 + kPanelHeight * 0.5 + 10;
  expectRect(shared.at("oldTesselFrame"), {0, 115, 320, kPanelHeight});
  expectRect(shared.at("oldArrowFrame"), {0, -5, 320, 568});
  expectRect(shared.at("newTesselFrame"), {0, stripY, 320, 568 / 20.0});
  expectRect(shared.at("intermediateTesselFrame"), {0, 115, 320, 568 / 20.0});
  expectRect(shared.at("intermediateArrowFrame"), {0, -5 + (stripY - 115), 320, 568});
}

TEST_F(Opening, PlaysThePanelArrowAndCopyOnTheirTimeline) {
  auto dump = openMail();
  const auto& shared = dump.at("shared");
  const auto& panel = dump.at("controller").at("genericView");

  auto panelFrames = animationsOf(dump, panel, "frame");
  ASSERT_GE(panelFrames.size(), 2u);
  // Stage 1: the strip grows to the full panel at the rest height.
  EXPECT_DOUBLE_EQ(panelFrames[0].at("start").get<double>(), 1.0);
  EXPECT_DOUBLE_EQ(panelFrames[0].at("duration").get<double>(), 0.325);
  expectRect(panelFrames[0].at("from"), rectOf(shared.at("newTesselFrame")));
  expectRect(panelFrames[0].at("to"), {0, 115, 320, kPanelHeight});
  // Stage 2 follows at the end of stage 1.
  EXPECT_NEAR(panelFrames[1].at("start").get<double>(), 1.325, kTolerance);
  EXPECT_DOUBLE_EQ(panelFrames[1].at("duration").get<double>(), 0.25);
  expectRect(panelFrames[1].at("to"), rectOf(shared.at("oldTesselFrame")));

  auto panelAlpha = animationsOf(dump, panel, "alpha");
  ASSERT_FALSE(panelAlpha.empty());
  EXPECT_EQ(panelAlpha[0].at("from"), 0);
  EXPECT_EQ(panelAlpha[0].at("to"), 1);
  EXPECT_DOUBLE_EQ(panelAlpha[0].at("duration").get<double>(), 0.325);

  auto arrowFrames = animationsOf(dump, shared.at("arrowView"), "frame");
  ASSERT_FALSE(arrowFrames.empty());
  expectRect(arrowFrames[0].at("from"), rectOf(shared.at("intermediateArrowFrame")));
  expectRect(arrowFrames[0].at("to"), rectOf(shared.at("oldArrowFrame")));

  // The copy fades in from 0.2 s after the start, over 0.25 s.
  auto copyAlpha = animationsOf(dump, shared.at("iconView"), "alpha");
  ASSERT_EQ(copyAlpha.size(), 1u);
  EXPECT_NEAR(copyAlpha[0].at("start").get<double>(), 1.2, kTolerance);
  EXPECT_DOUBLE_EQ(copyAlpha[0].at("duration").get<double>(), 0.25);
  EXPECT_EQ(copyAlpha[0].at("to"), 1);
}

TEST_F(Opening, PageIconsDimAndMoveOutOfThePanelsWay) {
  auto config = smallPhone();
  config.frames[kMaps] = {92, 100, 60, 74};    // the held icon's row: rises
  config.frames[kNotes] = {168, 300, 60, 74};  // below it: drops
  auto dump = openMail(config);

  double rise = (100 + 74 + 30) - 120 + 20;
  double drop = (120 + kPanelHeight) - (100 + 74 + 30) + 20;
  auto expectMoved = [&](const char* app, double y, double alpha) {
    SCOPED_TRACE(app);
    const auto& view = viewOf(dump, json(iconViewId(dump, app)));
    EXPECT_NEAR(rectOf(view.at("frame")).y, y, kTolerance);
    EXPECT_EQ(view.at("alpha"), alpha);
  };
  expectMoved(kMail, 100 - rise, 1.0);  // the held icon moves but keeps its alpha
  expectMoved(kMaps, 100 - rise, 0.5);
  expectMoved(kNotes, 300 + drop, 0.5);
  // The copy rises with the icons.
  EXPECT_NEAR(rectOf(viewOf(dump, dump.at("shared").at("iconView")).at("frame")).y, 118.5 - rise, kTolerance);
}

TEST_F(Opening, APanelThatSticksOutOfTheWindowIsMovedBackAfterSettling) {
  auto config = smallPhone();
  config.frames[kMail] = {16, 440, 60, 74};
  auto dump = openMail(config);
  // Rest y 455 and bottom 597.29 lie past the window's 568: up by half the
  // icon and the overhang.
  double restY = 455;
  double shift = 74 * 0.5 + (restY + kPanelHeight - 568);
  const auto& panel = dump.at("controller").at("genericView");
  auto moves = animationsOf(dump, panel, "frame");
  ASSERT_EQ(moves.size(), 3u);
  EXPECT_NEAR(moves[2].at("start").get<double>(), 1.575, kTolerance);
  EXPECT_DOUBLE_EQ(moves[2].at("duration").get<double>(), 0.375);
  expectRect(viewOf(dump, panel).at("frame"), {0, restY - shift, 320, kPanelHeight});
}

TEST_F(Opening, AnIconAtTheTopEdgePushesEverythingDown) {
  auto config = smallPhone();
  config.frames[kMail] = {16, -20, 60, 74};
  auto dump = openMail(config);
  // Rest y -5; the held icon rose to -124, at or above -15.
  double shift = -5 + 74 * 1.5;
  expectRect(viewOf(dump, dump.at("controller").at("genericView")).at("frame"), {0, -5 + shift, 320, kPanelHeight});
}

}  // namespace
}  // namespace tessel::testing
