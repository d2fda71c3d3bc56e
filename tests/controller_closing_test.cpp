// Every way of closing the panel leaves the home screen as it was.

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller/tessel_notification_controller.h"
#include "controller_world_support.h"

namespace tessel::testing {
namespace {

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

TEST(Closing, EveryWayOutLeavesNoPanelViewsAndFullOpacity) {
  const std::vector<std::pair<std::string, std::function<void(Phone&)>>> ways{
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
      {"dismissTessel", [](Phone& phone) { phone.library().sharedController().dismissTessel(); }},
  };
  for (const auto& [name, close] : ways) {
    SCOPED_TRACE(name);
    Phone phone;
    phone.open(kMail);
    auto open = phone.dump();
    ASSERT_TRUE(panelIsOpen(open));
    close(phone);
    // The dismiss button goes at once, the rest once the closing has played.
    EXPECT_TRUE(viewOf(phone.dump(), open.at("controller").at("dismissButton")).at("superview").is_null());
    phone.settle();
    expectHomeScreenRestored(phone.dump());
  }
}

TEST(Closing, ThePanelAndArrowFoldTowardTheIconAndTheListIsLaidOutAgain) {
  Phone phone;
  phone.open(kMail);
  auto open = phone.dump();
  double closedAt = phone->time();
  phone->home(true);
  phone.settle();
  auto dump = phone.dump();

  auto folds = animationsOf(dump, open.at("controller").at("genericView"), "frame");
  ASSERT_FALSE(folds.empty());
  EXPECT_EQ(folds.back().at("start"), closedAt);
  EXPECT_EQ(folds.back().at("duration"), 0.3);
  // To zero height, the icon's height below the rest top.
  EXPECT_EQ(rectOf(folds.back().at("to")), (host::Rect{0, 115 + 74, 320, 0}));
  // The arrow goes down by the icon's height and 7.5; its height loses the panel's y.
  auto arrow = animationsOf(dump, open.at("shared").at("arrowView"), "frame");
  ASSERT_FALSE(arrow.empty());
  EXPECT_EQ(rectOf(arrow.back().at("to")), (host::Rect{0, -5 + 74 + 7.5, 320, 568 - (115 + 74)}));

  int relayouts = 0;
  for (const auto& call : dump.at("hostCalls")) {
    if (call.at("call") == "layoutIconsIfNeeded:domino:" && call.at("t").get<double>() >= closedAt) {
      ++relayouts;
      EXPECT_EQ(call.at("args"), json::array({0.375, false}));
    }
  }
  EXPECT_EQ(relayouts, 1);  // the page icon's own list only
}

TEST(Closing, WithNoPanelOpenNothingBreaks) {
  Phone phone;
  phone->home(true);
  phone.settle();
  expectHomeScreenRestored(phone.dump());
}

}  // namespace
}  // namespace tessel::testing
