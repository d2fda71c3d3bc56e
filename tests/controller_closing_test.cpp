// Every way of closing the panel leaves the home screen as it was.

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller/tessel_notification_controller.h"
#include "controller_world_support.h"

namespace tessel::testing {
namespace {

constexpr double kTolerance = 1e-9;

void expectHomeScreenRestored(const json& dump) {
  for (const auto& id : windowTree(dump)) {
    const auto& view = dump.at("views").at(id);
    auto tag = view.at("tag").get<long long>();
    EXPECT_FALSE(tag >= 1333 && tag <= 1337) << id << " tagged " << tag;
    EXPECT_EQ(view.at("alpha"), 1) << id << " " << view.at("class");
  }
  EXPECT_TRUE(dump.at("shared").at("iconView").is_null());
  EXPECT_TRUE(dump.at("observers").at("keyboard").empty());
  EXPECT_FALSE(panelIsOpen(dump));
}

struct Way {
  std::string name;
  std::function<void(Phone&)> close;
};

TEST(Closing, EveryWayOutLeavesNoPanelViewsAndFullOpacity) {
  const std::vector<Way> ways{
      {"dismiss button",
       [](Phone& p) {
         p->tap({160, 500});
       }},
      {"row", [](Phone& p) { ASSERT_TRUE(p->tapRow(0)); }},
      {"home", [](Phone& p) { p->home(true); }},
      {"double home", [](Phone& p) { p->doubleHome(true); }},
      {"launch", [](Phone& p) { ASSERT_TRUE(p->launch(kMaps)); }},
      {"switcher tap", [](Phone& p) { ASSERT_TRUE(p->switcherTap(kMaps)); }},
      {"switcher launch", [](Phone& p) { ASSERT_TRUE(p->switcherLaunch(kMaps)); }},
      {"lock", [](Phone& p) { p->lock(); }},
      {"unlock", [](Phone& p) { p->unlock(); }},
      {"dismissTessel", [](Phone&) { TesselNotificationController::sharedController()->dismissTessel(); }},
  };
  for (const auto& way : ways) {
    SCOPED_TRACE(way.name);
    Phone phone;
    phone.open(kMail);
    auto open = phone.dump();
    ASSERT_TRUE(panelIsOpen(open));
    ASSERT_FALSE(open.at("observers").at("keyboard").empty());

    way.close(phone);
    // The dismiss button goes at once; the rest after the closing animation.
    EXPECT_TRUE(viewOf(phone.dump(), open.at("controller").at("dismissButton")).at("superview").is_null());
    phone.settle();
    expectHomeScreenRestored(phone.dump());
  }
}

TEST(Closing, ThePanelFoldsTowardTheIconAndTheListIsLaidOutAgain) {
  Phone phone;
  phone.open(kMail);
  auto open = phone.dump();
  double closedAt = phone->time();
  phone->home(true);
  phone.settle();
  auto dump = phone.dump();

  const auto& panel = open.at("controller").at("genericView");
  auto folds = animationsOf(dump, panel, "frame");
  ASSERT_FALSE(folds.empty());
  const auto& fold = folds.back();
  EXPECT_NEAR(fold.at("start").get<double>(), closedAt, kTolerance);
  EXPECT_DOUBLE_EQ(fold.at("duration").get<double>(), 0.3);
  // Zero height, the icon's height below the rest top.
  auto to = rectOf(fold.at("to"));
  EXPECT_NEAR(to.y, 115 + 74, kTolerance);
  EXPECT_EQ(to.height, 0);

  // The arrow: its y down by the icon's height and 7.5, its height less the panel's y.
  auto arrowFolds = animationsOf(dump, open.at("shared").at("arrowView"), "frame");
  ASSERT_FALSE(arrowFolds.empty());
  auto arrowTo = rectOf(arrowFolds.back().at("to"));
  EXPECT_NEAR(arrowTo.y, -5 + 74 + 7.5, kTolerance);
  EXPECT_NEAR(arrowTo.height, 568 - (115 + 74), kTolerance);

  bool relaid = false;
  for (const auto& call : dump.at("hostCalls")) {
    if (call.at("call") == "layoutIconsIfNeeded:domino:" && call.at("t").get<double>() >= closedAt) {
      relaid = true;
      EXPECT_EQ(call.at("args"), json::array({0.375, false}));
    }
  }
  EXPECT_TRUE(relaid);
}

TEST(Closing, WithNoPanelOpenNothingBreaks) {
  Phone phone;
  TesselNotificationController::sharedController()->dismissTessel();
  phone->home(true);
  phone.settle();
  expectHomeScreenRestored(phone.dump());
}

}  // namespace
}  // namespace tessel::testing
