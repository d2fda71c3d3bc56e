// The open panel keeps clear of the keyboard, and comes back down with it.

#include <string>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

constexpr double kTolerance = 1e-9;
constexpr double kPanelBottom = 115 + 568 / 3.5 - 20;  // Mail's panel at rest

// The vertical positions of what moves with the keyboard.
struct Positions {
  double panel, arrow, copy, neighbour;
};

Positions positionsOf(const json& dump) {
  auto y = [&](const json& id) { return rectOf(viewOf(dump, id).at("frame")).y; };
  return {y(dump.at("controller").at("genericView")), y(dump.at("shared").at("arrowView")),
          y(dump.at("shared").at("iconView")), y(json(iconViewId(dump, kMaps)))};
}

void expectMovedBy(const Positions& from, const Positions& to, double dy, double copyDy) {
  EXPECT_NEAR(to.panel - from.panel, dy, kTolerance);
  EXPECT_NEAR(to.arrow - from.arrow, dy, kTolerance);
  EXPECT_NEAR(to.neighbour - from.neighbour, dy, kTolerance);
  EXPECT_NEAR(to.copy - from.copy, copyDy, kTolerance);
}

double displacement(Phone& phone) { return phone.dump().at("shared").at("realKeyboardDisplacement").get<double>(); }

TEST(Keyboard, RisesByTheOverlapAndFallsByTheSameAmount) {
  Phone phone;
  phone.open(kMail);
  auto open = positionsOf(phone.dump());

  double keyboardTop = 200;
  phone->keyboard(true, {0, keyboardTop, 320, 368});
  phone.settle();
  auto risen = positionsOf(phone.dump());
  double overlap = kPanelBottom - keyboardTop;
  expectMovedBy(open, risen, -overlap, -overlap);
  EXPECT_NEAR(displacement(phone), overlap, kTolerance);

  auto animations = phone.dump().at("animations");
  EXPECT_DOUBLE_EQ(animations.back().at("duration").get<double>(), 0.5);

  phone->keyboard(false, {0, 568, 320, 368});
  phone.settle();
  expectMovedBy(risen, positionsOf(phone.dump()), overlap, overlap);
  // The amount is kept after the fall.
  EXPECT_NEAR(displacement(phone), overlap, kTolerance);
}

TEST(Keyboard, NothingMovesWithoutAnOverlapOrAnEarlierRise) {
  Phone phone;
  phone.open(kMail);
  auto open = positionsOf(phone.dump());

  phone->keyboard(false, {0, 568, 320, 368});                         // a fall before any rise
  phone->keyboard(true, {0, kPanelBottom, 320, 568 - kPanelBottom});  // touching, not covering
  phone.settle();
  expectMovedBy(open, positionsOf(phone.dump()), 0, 0);
  EXPECT_EQ(displacement(phone), 0);

  phone->keyboard(true, {0, 200, 320, 368});
  phone->keyboard(false, {0, 150, 320, 418});  // still covering the panel's new bottom
  phone.settle();
  expectMovedBy(open, positionsOf(phone.dump()), -(kPanelBottom - 200), -(kPanelBottom - 200));
}

TEST(Keyboard, ADockIconsCopyStaysWhereItIs) {
  Phone phone;
  phone.open(kPhone);
  auto dump = phone.dump();
  double panelBottom = rectOf(viewOf(dump, dump.at("controller").at("genericView")).at("frame")).maxY();
  auto open = positionsOf(dump);

  phone->keyboard(true, {0, 300, 320, 268});
  phone.settle();
  expectMovedBy(open, positionsOf(phone.dump()), -(panelBottom - 300), 0);
}

TEST(Keyboard, ClosingStopsListening) {
  Phone phone;
  phone.open(kMail);
  phone->home(true);
  phone.settle();
  phone->keyboard(true, {0, 0, 320, 568});
  phone.settle();
  EXPECT_EQ(displacement(phone), 0);
}

}  // namespace
}  // namespace tessel::testing
