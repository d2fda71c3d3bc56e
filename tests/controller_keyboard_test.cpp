// The open panel keeps clear of the keyboard, and comes back down with it.

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

constexpr double kPanelBottom = 115 + 568 / 3.5 - 20;  // Mail's panel at rest

// The heights of what moves with the keyboard: panel, arrow, copy, a neighbour.
std::vector<double> heights(const json& dump) {
  std::vector<double> ys;
  for (const auto& id : {dump.at("controller").at("genericView"), dump.at("shared").at("arrowView"),
                         dump.at("shared").at("iconView"), json(iconViewId(dump, kMaps))}) {
    ys.push_back(rectOf(viewOf(dump, id).at("frame")).y);
  }
  return ys;
}

void expectMoved(const std::vector<double>& from, const std::vector<double>& to, double dy, double copyDy) {
  for (std::size_t i = 0; i < from.size(); ++i) EXPECT_NEAR(to[i] - from[i], i == 2 ? copyDy : dy, 1e-9) << i;
}

double displacement(const json& dump) { return dump.at("shared").at("realKeyboardDisplacement").get<double>(); }

TEST(Keyboard, RisesByTheOverlapAndFallsByTheSameAmount) {
  Phone phone;
  phone.open(kMail);
  auto open = heights(phone.dump());
  double overlap = kPanelBottom - 200;
  phone->keyboard(true, {0, 200, 320, 368});
  phone.settle();
  auto risen = phone.dump();
  expectMoved(open, heights(risen), -overlap, -overlap);
  EXPECT_NEAR(displacement(risen), overlap, 1e-9);
  EXPECT_EQ(risen.at("animations").back().at("duration"), 0.5);

  phone->keyboard(false, {0, 568, 320, 368});
  phone.settle();
  expectMoved(heights(risen), heights(phone.dump()), overlap, overlap);
  EXPECT_NEAR(displacement(phone.dump()), overlap, 1e-9);  // kept after the fall
}

TEST(Keyboard, NothingMovesWithoutAnOverlapOrAnEarlierRise) {
  Phone phone;
  phone.open(kMail);
  auto open = heights(phone.dump());
  auto animations = phone.dump().at("animations").size();
  phone->keyboard(false, {0, 568, 320, 368});                         // a fall before any rise
  phone->keyboard(true, {0, kPanelBottom, 320, 568 - kPanelBottom});  // touching, not covering
  phone.settle();
  EXPECT_EQ(phone.dump().at("animations").size(), animations);
  EXPECT_EQ(displacement(phone.dump()), 0);

  phone->keyboard(true, {0, 200, 320, 368});
  phone->keyboard(false, {0, 150, 320, 418});  // still covering the panel's new bottom
  phone.settle();
  expectMoved(open, heights(phone.dump()), 200 - kPanelBottom, 200 - kPanelBottom);
}

TEST(Keyboard, ADockIconsCopyStaysWhereItIs) {
  Phone phone;
  phone.open(kPhone);
  auto dump = phone.dump();
  double bottom = rectOf(viewOf(dump, dump.at("controller").at("genericView")).at("frame")).maxY();
  phone->keyboard(true, {0, 300, 320, 268});
  phone.settle();
  expectMoved(heights(dump), heights(phone.dump()), 300 - bottom, 0);
}

}  // namespace
}  // namespace tessel::testing
