#include <sstream>

#include <gtest/gtest.h>

#include "cli/scratch_directory.h"
#include "cli/serve/live_phone.h"
#include "cli/serve/seed.h"
#include "sim/home_screen.h"
#include "sim/sim_host.h"
#include "sim/sim_icon_view.h"
#include "sim/world.h"

// A finger on the live phone, its wall-clock and the phone's clock driven
// by hand.
namespace tessel::cli::serve {
namespace {

TEST(LivePhone, ALongPressBeginsHalfASecondAfterItsFingerWentDownAndEndsWhenItLifts) {
  std::ostringstream err;
  auto seed = loadSeed("", err);
  ASSERT_TRUE(seed) << err.str();
  ScratchDirectory files("tessel-live-phone-test");
  sim::WorldConfig config = seed->scenario.world;
  config.fileSystemRoot = files.path();
  config.settings.activationMethod = 4;  // a tap, then a hold
  LivePhone phone(config);
  phone.unlock();
  phone.world().advanceTo(1);

  const sim::HomeScreen* home = phone.world().host().homeScreen();
  ASSERT_TRUE(home);
  auto mail = home->iconViewFor(home->iconFor("com.example.mail").get());
  ASSERT_TRUE(mail);
  host::Point origin = mail->originInRoot();
  host::Point center{origin.x + 30, origin.y + 30};

  // The wall clock runs 100 s ahead of the phone's, at the same speed.
  phone.touchDown(center, 101.0);
  phone.touchUp(center, 101.05);
  phone.world().advanceTo(1.2);
  phone.touchDown(center, 101.2);
  phone.world().advanceTo(1.5);
  phone.keyboard(true);  // something else happens while the finger is down
  phone.world().advanceTo(1.75);
  phone.pollTouches(101.75);
  phone.world().advanceTo(1.8);
  EXPECT_TRUE(phone.world().dump()["panel"].is_object())
      << "the press began 0.5 s after its finger went down, when it became known";

  auto windowViews = [&] {
    Json dump = phone.world().dump();
    return dump["views"][dump["window"].get<std::string>()]["subviews"].size();
  };
  const std::size_t whileHeld = windowViews();
  phone.world().advanceTo(2.4);
  EXPECT_EQ(windowViews(), whileHeld) << "the press has not ended yet";
  phone.touchUp(center, 102.4);
  phone.world().advanceTo(2.5);
  EXPECT_GT(windowViews(), whileHeld) << "the press ends as the finger lifts, and the library acts again";

  const auto& events = phone.log().events();
  ASSERT_EQ(events.size(), 3u) << Json(events).dump();
  EXPECT_EQ(events[0]["do"], "unlock");
  EXPECT_EQ(events[1]["do"], "gesture");
  EXPECT_EQ(events[1]["gesture"], "tapAndHold");
  EXPECT_DOUBLE_EQ(events[1]["at"].get<double>(), 1.2) << "logged from when the finger went down";
  EXPECT_NEAR(events[1]["hold"].get<double>(), 1.2, 1e-9) << "for as long as it stayed";
  EXPECT_EQ(events[2]["do"], "keyboard") << "the log stays in time order";
}

}  // namespace
}  // namespace tessel::cli::serve
