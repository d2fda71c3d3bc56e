// Random phones and random events, seeded: whatever a person does, the panel
// always goes away completely.

#include <cstdlib>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/random_phone.h"
#include "cli/soak.h"
#include "tool_run.h"

namespace tessel::cli {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

// A dump of a window holding one view and one icon, to be spoiled.
json settledWindow() {
  return json::parse(R"({"window": "v1",
    "views": {"v1": {"tag": 0, "class": "UIWindow", "subviews": ["v2"]},
              "v2": {"tag": 0, "class": "UIView", "alpha": 1, "subviews": []},
              "v3": {"tag": 0, "class": "SBIconView", "alpha": 1}},
    "home": {"iconViews": {"com.example.mail": "v3"}}})");
}

TEST(SoakCheck, NamesWhatAClosingLeftBehind) {
  EXPECT_EQ(closingProblem(settledWindow()), "");
  json companion = settledWindow();
  companion["views"]["v2"]["tag"] = 1335;
  EXPECT_EQ(closingProblem(companion), "a view tagged 1335 is left in the window");
  json panel = settledWindow();
  panel["views"]["v2"]["class"] = "TesselGenericNotificationView";
  EXPECT_EQ(closingProblem(panel), "a panel is left in the window");
  json dimmed = settledWindow();
  dimmed["views"]["v3"]["alpha"] = 0.5;
  EXPECT_EQ(closingProblem(dimmed), "the icon of com.example.mail stays dimmed");
}

TEST(SoakCheck, TheSameSeedMakesTheSamePhoneAndEvents) {
  auto played = [](unsigned seed) {
    RandomPhone random(seed);
    sim::World world(random.config());
    std::string events;
    for (int i = 0; i < 40; ++i) {
      world.advanceTo(world.time() + random.pause());
      random.event(world, [&](const std::string& what) { events += what + "\n"; });
    }
    return events + world.dump().at("home").dump();
  };
  EXPECT_EQ(played(7), played(7));
  EXPECT_NE(played(7), played(8));
}

// TESSEL_SOAK_SEEDS=N plays seeds 1 to N (300 by default); `tessel-sim soak`
// plays more, and replays one.
TEST(Soak, EveryClosingLeavesNoPanelAndEveryIconOpaque) {
  const char* count = std::getenv("TESSEL_SOAK_SEEDS");
  SoakOptions options;
  options.scenarios = count ? std::atoi(count) : 300;
  std::ostringstream err;
  SoakResult result = runSoak(options, err);
  EXPECT_FALSE(result.failure) << *result.failure << "\nreplay: tessel-sim soak --seed " << *result.failedSeed
                               << " --scenarios 1 --trace";
  EXPECT_EQ(result.scenarios, options.scenarios);
  EXPECT_GT(result.closingsChecked, result.scenarios) << "the random events close the panel often";
}

TEST(Soak, TheCommandReportsWhatItPlayedAndReplaysOneSeed) {
  auto outcome = testing::runTool("soak --scenarios 3 --seed 40");
  EXPECT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("soak: 3 random phones (seeds 40 to 42)"));
  auto traced = testing::runTool("soak --scenarios 1 --seed 41 --trace");
  EXPECT_EQ(traced.status, 0) << traced.output;
  EXPECT_THAT(traced.output, HasSubstr("soak: t="));
  EXPECT_THAT(traced.output, HasSubstr("(seed 41)"));
}

}  // namespace
}  // namespace tessel::cli
