// Which gesture opens the panel, and when it does not.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller/tessel_notification_controller.h"
#include "controller_world_support.h"

namespace tessel::testing {
namespace {

struct MethodCase {
  long long method;
  std::string opens;
  std::vector<std::string> doNotOpen;
};

TEST(Activation, EachMethodOpensWithItsOwnGestureOnly) {
  const std::vector<MethodCase> cases{
      {0, "swipeUp", {"swipeDown", "doubleTap"}},
      {1, "swipeDown", {"swipeUp", "tap"}},
      {2, "doubleTap", {"tap", "swipeUp"}},
      {3, "tripleTap", {"doubleTap", "swipeDown"}},
      // A tap first, then the hold: a plain hold is not enough.
      {4, "tapAndHold", {"hold", "swipeUp"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.method);
    auto config = smallPhone();
    config.settings.activationMethod = c.method;
    Phone phone(config);
    for (const auto& gesture : c.doNotOpen) {
      SCOPED_TRACE(gesture);
      ASSERT_TRUE(phone->gesture(kMaps, gesture, 1.0));
      phone.settle();
      EXPECT_FALSE(panelIsOpen(phone.dump()));
    }
    ASSERT_TRUE(phone->gesture(kMaps, c.opens, 1.0));
    phone.settle();
    auto dump = phone.dump();
    ASSERT_TRUE(panelIsOpen(dump));
    EXPECT_EQ(dump.at("panel").at("bundleIdentifier"), kMaps);
  }
}

TEST(Activation, LightModeFollowsTheSettingAndEditingModeIgnoresTheGesture) {
  auto config = smallPhone();
  config.settings.darkMode = false;
  Phone phone(config);
  EXPECT_EQ(phone.dump().at("controller").at("isLightMode"), false);

  phone->editing(true);
  ASSERT_TRUE(phone->gesture(kMail, "swipeUp", 0));
  phone.settle();
  auto editing = phone.dump();
  EXPECT_FALSE(panelIsOpen(editing));
  EXPECT_EQ(editing.at("controller").at("isLightMode"), false);

  phone->editing(false);
  phone.open(kMail);
  auto open = phone.dump();
  EXPECT_TRUE(panelIsOpen(open));
  EXPECT_EQ(open.at("controller").at("isLightMode"), true);
}

TEST(Activation, TheControllerIsMadeOnceAndDismissClosesThePanel) {
  Phone phone;
  auto controller = TesselNotificationController::sharedController();
  EXPECT_EQ(controller, TesselNotificationController::sharedController());
  EXPECT_EQ(controller, module().controller);

  phone.open(kMail);
  ASSERT_TRUE(panelIsOpen(phone.dump()));
  controller->dismissTessel();
  phone.settle();
  EXPECT_FALSE(panelIsOpen(phone.dump()));
}

}  // namespace
}  // namespace tessel::testing
