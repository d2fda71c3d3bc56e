// Which gesture opens the panel, and when none does.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

TEST(Activation, EachMethodOpensWithItsOwnGestureOnly) {
  struct Case {
    long long method;
    std::string opens;
    std::vector<std::string> doNotOpen;
  };
  const std::vector<Case> cases{
      {0, "swipeUp", {"swipeDown", "doubleTap"}},
      {1, "swipeDown", {"swipeUp"}},
      {2, "doubleTap", {"tap", "swipeUp"}},
      {3, "tripleTap", {"doubleTap"}},
      {4, "tapAndHold", {"hold"}},  // a tap first, then the hold
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.method);
    auto config = smallPhone();
    config.settings.activationMethod = c.method;
    Phone phone(config);
    for (const auto& gesture : c.doNotOpen) {
      ASSERT_TRUE(phone->gesture(kMaps, gesture, 1.0));
      phone.settle();
      EXPECT_FALSE(panelIsOpen(phone.dump())) << gesture;
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
  phone->editing(true);
  ASSERT_TRUE(phone->gesture(kMail, "swipeUp", 0));
  phone.settle();
  EXPECT_FALSE(panelIsOpen(phone.dump()));
  EXPECT_EQ(phone.dump().at("controller").at("isLightMode"), false);

  phone->editing(false);
  phone.open(kMail);
  EXPECT_TRUE(panelIsOpen(phone.dump()));
  EXPECT_EQ(phone.dump().at("controller").at("isLightMode"), true);
}

}  // namespace
}  // namespace tessel::testing
