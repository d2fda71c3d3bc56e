// Where the panel, its arrow and the icon copy go for an icon on a page, in
// the dock and in an open folder, and what the window holds afterwards.

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

void expectTriangle(const json& dump, const std::vector<host::Point>& corners) {
  const auto& points = viewOf(dump, dump.at("shared").at("arrowView")).at("mask").at("points");
  ASSERT_EQ(points.size(), corners.size());
  for (std::size_t i = 0; i < corners.size(); ++i) {
    EXPECT_NEAR(points.at(i).at(0).get<double>(), corners[i].x, 1e-9) << i;
    EXPECT_NEAR(points.at(i).at(1).get<double>(), corners[i].y, 1e-9) << i;
  }
}

host::Point copyCentre(const json& dump) {
  return rectOf(viewOf(dump, dump.at("shared").at("iconView")).at("frame")).center();
}

// Where the copy was put before the opening moved it: where its first move began.
host::Point copyCentreAsBuilt(const json& dump) {
  auto moves = animationsOf(dump, dump.at("shared").at("iconView"), "frame");
  return moves.empty() ? copyCentre(dump) : rectOf(moves.front().at("from")).center();
}

void expectPlacement(const json& dump, double origin, int iconOriginY, int arrowPosition) {
  const auto& shared = dump.at("shared");
  EXPECT_NEAR(shared.at("originToStartFrom").get<double>(), origin, 1e-9);
  EXPECT_EQ(shared.at("checkIconOriginY"), iconOriginY);
  EXPECT_EQ(shared.at("arrowPosition"), arrowPosition);
  EXPECT_TRUE(dump.at("controller").at("iconsToMoveUp").empty());
}

// Positions among the key window's direct subviews.
long positionInWindow(const json& dump, const json& id) {
  const auto& subviews = viewOf(dump, dump.at("window")).at("subviews");
  return std::find(subviews.begin(), subviews.end(), id) - subviews.begin();
}

TEST(Placement, PageIconPanelOpensBelowTheIconWithTheArrowPointingUp) {
  Phone phone;
  phone.open(kMail);
  auto dump = phone.dump();
  EXPECT_EQ(dump.at("shared").at("globalViewSender"), iconViewId(dump, kMail));
  EXPECT_EQ(dump.at("shared").at("iconExistsInFolder"), false);
  expectPlacement(dump, 120, 100, 0);
  expectTriangle(dump, {{33.5, 120}, {46, 100}, {58.5, 120}});
  // A quarter of the icon's height below its centre.
  EXPECT_EQ(copyCentreAsBuilt(dump), (host::Point{46, 155.5}));
}

TEST(Placement, DockIconPanelOpensAboveTheDockWithANarrowArrowLeaningRight) {
  Phone phone;
  phone.open(kPhone);
  auto dump = phone.dump();
  double origin = 500 - 568 / 3.5 - 20;
  expectPlacement(dump, origin, 500, 1);
  double bottom = origin + (568 / 3.5 - 20);
  expectTriangle(dump, {{43.5, bottom}, {53.5, bottom + 20}, {63.5, bottom}});
  // Centred on the icon, 8 points up, and not moved by the opening.
  EXPECT_EQ(copyCentre(dump), (host::Point{46, 529}));

  // The panel is asked to go below the dock's list; that list is not one of
  // the window's own subviews, so the window puts the panel on top instead.
  auto panel = positionInWindow(dump, dump.at("controller").at("genericView"));
  auto dock = viewOf(dump, json(iconViewId(dump, kPhone))).at("superview");
  EXPECT_NE(viewOf(dump, dock).at("superview"), dump.at("window"));
  EXPECT_GT(panel, positionInWindow(dump, dump.at("controller").at("dismissButton")));
}

TEST(Placement, FolderIconTakesItsTopFromTheWindowButItsRowFromTheFolder) {
  Phone phone;
  ASSERT_TRUE(phone->openFolder("Tools"));
  phone.settle();
  phone.open(kCalc);
  auto dump = phone.dump();
  EXPECT_EQ(dump.at("shared").at("iconExistsInFolder"), true);
  expectPlacement(dump, 170, 20, 0);
  expectTriangle(dump, {{53.5, 170}, {66, 150}, {78.5, 170}});
  EXPECT_EQ(copyCentreAsBuilt(dump), (host::Point{66, 199}));
  // Folder icons rise without the page's 20-point margin.
  double rise = (170 + 74 + 30) - 170;
  EXPECT_DOUBLE_EQ(copyCentre(dump).y, 199 - rise);
  EXPECT_DOUBLE_EQ(rectOf(viewOf(dump, json(iconViewId(dump, kCalc))).at("frame")).y, 20 - rise);
}

TEST(Construction, TheWindowHoldsArrowCopyButtonAndPanelInThatOrder) {
  for (bool darkMode : {true, false}) {
    SCOPED_TRACE(darkMode);
    auto config = smallPhone();
    config.settings.darkMode = darkMode;
    Phone phone(config);
    phone.open(kMail);
    auto dump = phone.dump();
    const auto& arrow = dump.at("shared").at("arrowView");
    const auto& copy = dump.at("shared").at("iconView");
    const auto& button = dump.at("controller").at("dismissButton");
    EXPECT_LT(positionInWindow(dump, arrow), positionInWindow(dump, copy));
    EXPECT_LT(positionInWindow(dump, copy), positionInWindow(dump, button));
    EXPECT_LT(positionInWindow(dump, button), positionInWindow(dump, dump.at("controller").at("genericView")));

    EXPECT_EQ(viewOf(dump, arrow).at("tag"), 1334);
    const auto& arrowContents = viewOf(dump, arrow).at("subviews");
    ASSERT_EQ(arrowContents.size(), 1u);
    EXPECT_EQ(viewOf(dump, arrowContents.at(0)).at("class"), darkMode ? "_UIBackdropView" : "UIImageView");
    EXPECT_EQ(viewOf(dump, copy).at("tag"), 1333);
    EXPECT_EQ(viewOf(dump, copy).at("bundleIdentifier"), kMail);
    EXPECT_EQ(viewOf(dump, copy).at("labelAlpha"), 0);
    EXPECT_EQ(viewOf(dump, button).at("buttonType"), 1);
    EXPECT_EQ(rectOf(viewOf(dump, button).at("frame")), (host::Rect{0, 0, 320, 568}));
  }
}

}  // namespace
}  // namespace tessel::testing
