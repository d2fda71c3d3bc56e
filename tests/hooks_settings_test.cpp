// Start-up and settings on a simulated phone: what the settings file makes
// of the library, and what a change of settings adds.

#include <string>

#include <gtest/gtest.h>

#include "controller_world_support.h"
#include "hooks/library.h"

namespace tessel::testing {
namespace {

std::string plist(const std::string& entries) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" + entries + "</dict></plist>\n";
}

// The phone as it starts with this settings file ("none": no file at all).
json startedWith(const std::string& contents, sim::WorldConfig config = smallPhone()) {
  ScratchRoot files;
  config.settingsFile = contents == "none" ? contents : files.write("settings.plist", contents);
  return Phone(config, /*unlock*/ false).dump();
}

TEST(Settings, EachFileReadsAsThePlatformWouldWithDefaultsForWhatIsMissing) {
  struct Case {
    std::string file;
    bool darkMode;
    long long activationMethod;
  };
  const std::vector<Case> cases{
      {"none", true, 0},
      {"this is not a property list {", true, 0},
      {plist("<key>darkMode</key><array/><key>activationMethod</key><dict/><key>enabled</key><array/>"), true, 0},
      {plist("<key>darkMode</key><false/><key>activationMethod</key><integer>3</integer>"), false, 3},
      {plist("<key>darkMode</key><string>NO</string><key>activationMethod</key><string>4</string>"), false, 4},
      {plist("<key>darkMode</key><string>yes</string><key>activationMethod</key><integer>-1</integer>"), true, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    auto dump = startedWith(c.file);
    EXPECT_EQ(dump.at("shared").at("darkMode"), c.darkMode);
    EXPECT_EQ(dump.at("shared").at("activationMethod"), c.activationMethod);
    EXPECT_EQ(dump.at("hooks").size(), 10u);  // enabled
  }
}

TEST(Settings, DisabledInstallsNothingYetRunsBothInitialisers) {
  auto config = smallPhone();
  config.settings.enabled = false;
  Phone phone(config);  // unlocked
  phone->layout(std::nullopt);
  EXPECT_TRUE(phone->gesture(kMail, "swipeUp", 0));
  phone.settle();

  auto dump = phone.dump();
  EXPECT_TRUE(dump.at("hooks").empty());
  EXPECT_TRUE(dump.at("observers").at("darwin").empty());
  EXPECT_TRUE(dump.at("bundlesLoaded").empty());
  EXPECT_TRUE(dump.at("shared").at("iconViews").empty());
  EXPECT_EQ(dump.at("shared").at("verticalOffset"), 81);  // 568 / 7, truncated
  EXPECT_TRUE(viewOf(dump, json(iconViewId(dump, kMail))).at("recognizers").empty());
  EXPECT_FALSE(panelIsOpen(dump));
}

TEST(Settings, EnabledInstallsSubscribesAndLoadsTheWebViewFrameworkFromItsRelease) {
  auto config = smallPhone();
  config.screen.height = 480;
  config.coreFoundationVersion = 1140.1;
  auto atThreshold = startedWith("none", config);
  EXPECT_EQ(
      atThreshold.at("hooks"),
      json::array(
          {"SBIconView layoutSubviews", "SBBulletinViewController initWithNibName:bundle:",
           "SBFolder initWithMaxListCount:maxIconCountInLists:", "SBLockScreenManager unlockUIFromSource:withOptions:",
           "SBApplicationIcon launchFromLocation:", "SBAppSwitcherController switcherScroller:itemTapped:",
           "SBAppSwitcherController launchAppWithIdentifier:url:actions:", "SBUIController clickedMenuButton",
           "SBUIController handleMenuDoubleTap", "SBUIController _deviceLockStateChanged:"}));
  EXPECT_EQ(atThreshold.at("bundlesLoaded"), json::array({"/System/Library/Frameworks/WebKit.framework"}));
  EXPECT_EQ(atThreshold.at("observers").at("darwin"), json::array({"com.orvalt.tessel/preferencesChanged"}));
  EXPECT_EQ(atThreshold.at("shared").at("verticalOffset"), 68);  // 480 / 7, truncated

  config.coreFoundationVersion = 1140.09;
  EXPECT_TRUE(startedWith("none", config).at("bundlesLoaded").empty());
}

TEST(Settings, AChangeAddsTheNewGestureAndKeepsTheOldOne) {
  Phone phone;
  auto settings = smallPhone().settings;
  settings.activationMethod = 2;
  phone->settings(settings);
  for (const char* gesture : {"swipeUp", "doubleTap"}) {
    SCOPED_TRACE(gesture);
    phone.open(kMaps, gesture);
    EXPECT_TRUE(panelIsOpen(phone.dump()));
    phone->home(true);
    phone.settle();
  }
  EXPECT_TRUE(phone->gesture(kMaps, "tripleTap", 0));
  phone.settle();
  EXPECT_FALSE(panelIsOpen(phone.dump()));
}

TEST(Settings, AnInvalidMethodAlertsOncePerRegistrationAndAttachesNothing) {
  for (long long method : {5LL, -1LL}) {
    SCOPED_TRACE(method);
    auto config = smallPhone();
    config.settings.activationMethod = method;
    Phone phone(config, /*unlock*/ false);
    auto alertsBefore = phone.dump().at("alerts").size();
    phone->unlock();
    phone->layout(std::string(kMail));
    phone.settle();

    auto dump = phone.dump();
    const auto& alerts = dump.at("alerts");
    EXPECT_EQ(alerts.size() - alertsBefore, kApplicationCount + 1);
    EXPECT_EQ(alerts.back(), json({{"title", "Tessel"},
                                   {"message",
                                    "Something has gone wrong! Please adjust your Activation method in Tessel "
                                    "Settings."},
                                   {"cancel", "Dismiss"}}));
    EXPECT_TRUE(viewOf(dump, json(iconViewId(dump, kMail))).at("recognizers").empty());
  }
}

}  // namespace
}  // namespace tessel::testing
