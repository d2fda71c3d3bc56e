// Where the panel, its arrow and the icon copy go for an icon on a page, in
// the dock and in an open folder, and what the window holds afterwards.

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

constexpr double kPanelHeight = 568 / 3.5 - 20;  // 142.2857…

void expectTriangle(const json& dump, const std::vector<host::Point>& corners) {
  const auto& points = viewOf(dump, dump.at("shared").at("arrowView")).at("mask").at("points");
  ASSERT_EQ(points.size(), corners.size());
  for (std::size_t i = 0; i < corners.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_NEAR(points.at(i).at(0).get<double>(), corners[i].x, 1e-9);
    EXPECT_NEAR(points.at(i).at(1).get<double>(), corners[i].y, 1e-9);
  }
}

host::Point copyCentre(const json& dump) {
  return rectOf(viewOf(dump, dump.at("shared").at("iconView")).at("frame")).center();
}

// Where the icon copy was put before the opening moved it: its first move's start.
host::Point copyCentreAsBuilt(const json& dump) {
  auto moves = animationsOf(dump, dump.at("shared").at("iconView"), "frame");
  if (moves.empty()) return copyCentre(dump);
  return rectOf(moves.front().at("from")).center();
}

TEST(Placement, PageIconPanelOpensBelowTheIconWithTheArrowPointingUp) {
  Phone phone;
  phone.open(kMail);
  auto dump = phone.dump();
  const auto& shared = dump.at("shared");

  EXPECT_EQ(shared.at("globalViewSender"), iconViewId(dump, kMail));
  EXPECT_EQ(shared.at("iconExistsInFolder"), false);
  EXPECT_DOUBLE_EQ(shared.at("originToStartFrom").get<double>(), 120);
  EXPECT_EQ(shared.at("checkIconOriginY"), 100);
  EXPECT_EQ(shared.at("arrowPosition"), 0);
  EXPECT_TRUE(dump.at("controller").at("iconsToMoveUp").empty());
  // Built at y 120, settled 5 points higher.
  auto rest = rectOf(shared.at("oldTesselFrame"));
  EXPECT_EQ(rest.y, 115);
  EXPECT_EQ(rest.width, 320);
  EXPECT_NEAR(rest.height, kPanelHeight, 1e-9);

  expectTriangle(dump, {{33.5, 120}, {46, 100}, {58.5, 120}});
  auto built = copyCentreAsBuilt(dump);
  EXPECT_DOUBLE_EQ(built.x, 46);
  EXPECT_DOUBLE_EQ(built.y, 155.5);  // a quarter of the icon's height below its centre
}

TEST(Placement, DockIconPanelOpensAboveTheDockWithANarrowArrowLeaningRight) {
  Phone phone;
  phone.open(kPhone);
  auto dump = phone.dump();
  const auto& shared = dump.at("shared");

  double origin = 500 - 568 / 3.5 - 20;
  EXPECT_NEAR(shared.at("originToStartFrom").get<double>(), origin, 1e-9);
  EXPECT_EQ(shared.at("checkIconOriginY"), 500);
  EXPECT_EQ(shared.at("arrowPosition"), 1);
  // Dock panels settle 5 points lower than built.
  EXPECT_NEAR(rectOf(shared.at("oldTesselFrame")).y, origin + 5, 1e-9);

  double bottom = origin + kPanelHeight;
  expectTriangle(dump, {{43.5, bottom}, {53.5, bottom + 20}, {63.5, bottom}});
  // The copy stays where it was built: centred on the icon, 8 points up.
  auto centre = copyCentre(dump);
  EXPECT_DOUBLE_EQ(centre.x, 46);
  EXPECT_DOUBLE_EQ(centre.y, 529);
}

TEST(Placement, FolderIconTakesItsTopFromTheWindowButItsRowFromTheFolder) {
  Phone phone;
  ASSERT_TRUE(phone->openFolder("Tools"));
  phone.settle();
  phone.open(kCalc);
  auto dump = phone.dump();
  const auto& shared = dump.at("shared");

  EXPECT_EQ(shared.at("iconExistsInFolder"), true);
  EXPECT_DOUBLE_EQ(shared.at("originToStartFrom").get<double>(), 170);
  EXPECT_EQ(shared.at("checkIconOriginY"), 20);
  EXPECT_EQ(shared.at("arrowPosition"), 0);
  expectTriangle(dump, {{53.5, 170}, {66, 150}, {78.5, 170}});
  auto built = copyCentreAsBuilt(dump);
  EXPECT_DOUBLE_EQ(built.x, 66);
  EXPECT_DOUBLE_EQ(built.y, 199);
}

TEST(Construction, TheWindowHoldsArrowCopyButtonAndPanelInThatOrder) {
  for (bool darkMode : {true, false}) {
    SCOPED_TRACE(darkMode);
    auto config = smallPhone();
    config.settings.darkMode = darkMode;
    Phone phone(config);
    phone.open(kMail);
    auto dump = phone.dump();
    const auto& window = viewOf(dump, dump.at("window"));
    const auto& controller = dump.at("controller");
    const auto& shared = dump.at("shared");

    const auto& subviews = window.at("subviews");
    auto position = [&](const json& id) { return std::find(subviews.begin(), subviews.end(), id) - subviews.begin(); };
    auto arrow = position(shared.at("arrowView"));
    auto copy = position(shared.at("iconView"));
    auto button = position(controller.at("dismissButton"));
    auto panel = position(controller.at("genericView"));
    ASSERT_LT(panel, static_cast<long>(subviews.size()));
    EXPECT_LT(arrow, copy);
    EXPECT_LT(copy, button);
    EXPECT_LT(button, panel);

    const auto& arrowView = viewOf(dump, shared.at("arrowView"));
    EXPECT_EQ(arrowView.at("tag"), 1334);
    EXPECT_EQ(rectOf(arrowView.at("frame")), (host::Rect{0, -5, 320, 568}));
    ASSERT_EQ(arrowView.at("subviews").size(), 1u);
    EXPECT_EQ(viewOf(dump, arrowView.at("subviews").at(0)).at("class"), darkMode ? "_UIBackdropView" : "UIImageView");

    const auto& copyView = viewOf(dump, shared.at("iconView"));
    EXPECT_EQ(copyView.at("tag"), 1333);
    EXPECT_EQ(copyView.at("bundleIdentifier"), kMail);
    EXPECT_EQ(copyView.at("labelAlpha"), 0);

    const auto& buttonView = viewOf(dump, controller.at("dismissButton"));
    EXPECT_EQ(buttonView.at("buttonType"), 1);
    EXPECT_EQ(rectOf(buttonView.at("frame")), (host::Rect{0, 0, 320, 568}));
  }
}

TEST(Construction, ADockPanelGoesBelowTheDockAndTheButton) {
  Phone phone;
  phone.open(kPhone);
  auto dump = phone.dump();
  const auto& subviews = viewOf(dump, dump.at("window")).at("subviews");
  const auto& dockList = viewOf(dump, json(iconViewId(dump, kPhone))).at("superview");
  auto position = [&](const json& id) { return std::find(subviews.begin(), subviews.end(), id) - subviews.begin(); };
  auto panel = position(dump.at("controller").at("genericView"));
  ASSERT_LT(panel, static_cast<long>(subviews.size()));
  EXPECT_LT(panel, position(dockList));
  // The dismiss button, added before, stays above everything.
  EXPECT_LT(panel, position(dump.at("controller").at("dismissButton")));
}

}  // namespace
}  // namespace tessel::testing
