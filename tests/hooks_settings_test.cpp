// Start-up and settings, seen on a simulated phone: what the settings file
// makes of the library, and what a change of settings adds.

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "controller_world_support.h"
#include "hooks/library.h"

namespace tessel::testing {
namespace {

std::string plist(const std::string& entries) {
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>)" +
         entries + "</dict></plist>\n";
}

// The phone as it starts with this settings file in place.
class StartedWith {
 public:
  explicit StartedWith(const std::string& fileContents, sim::WorldConfig config = smallPhone()) {
    config.settingsFile = files_.write("settings.plist", fileContents);
    phone_ = std::make_unique<Phone>(config, /*unlock*/ false);
  }
  Phone& phone() { return *phone_; }
  json shared() { return phone_->dump().at("shared"); }

 private:
  ScratchRoot files_;
  std::unique_ptr<Phone> phone_;
};

TEST(Settings, AbsentFileOrKeysOrUnreadableValuesTakeTheDefaults) {
  auto expectDefaults = [](Phone& phone) {
    auto dump = phone.dump();
    EXPECT_EQ(dump.at("shared").at("darkMode"), true);
    EXPECT_EQ(dump.at("shared").at("activationMethod"), 0);
    EXPECT_EQ(dump.at("hooks").size(), 10u);  // enabled
  };
  {
    SCOPED_TRACE("no file");
    auto config = smallPhone();
    config.settingsFile = "none";
    Phone phone(config, false);
    expectDefaults(phone);
  }
  {
    SCOPED_TRACE("corrupt file");
    StartedWith started("this is not a property list {");
    expectDefaults(started.phone());
  }
  {
    SCOPED_TRACE("no keys");
    StartedWith started(plist(""));
    expectDefaults(started.phone());
  }
  {
    SCOPED_TRACE("values with no boolean or integer reading");
    StartedWith started(
        plist("<key>darkMode</key><array/><key>activationMethod</key><dict/>"
              "<key>enabled</key><array/>"));
    expectDefaults(started.phone());
  }
}

TEST(Settings, StoredValuesAreReadWithThePlatformsReadings) {
  {
    StartedWith started(plist("<key>darkMode</key><false/><key>activationMethod</key><integer>3</integer>"));
    EXPECT_EQ(started.shared().at("darkMode"), false);
    EXPECT_EQ(started.shared().at("activationMethod"), 3);
  }
  {
    SCOPED_TRACE("strings");
    StartedWith started(
        plist("<key>darkMode</key><string>NO</string>"
              "<key>activationMethod</key><string>4</string>"));
    EXPECT_EQ(started.shared().at("darkMode"), false);
    EXPECT_EQ(started.shared().at("activationMethod"), 4);
  }
  {
    SCOPED_TRACE("a string that reads as true, a negative method");
    StartedWith started(
        plist("<key>darkMode</key><string>yes</string>"
              "<key>activationMethod</key><integer>-1</integer>"));
    EXPECT_EQ(started.shared().at("darkMode"), true);
    EXPECT_EQ(started.shared().at("activationMethod"), -1);
  }
}

TEST(Settings, DisabledInstallsNothingYetRunsBothInitialisers) {
  StartedWith started(plist("<key>enabled</key><false/>"));
  auto& phone = started.phone();
  phone->unlock();
  phone->layout(std::nullopt);
  phone.settle();

  auto dump = phone.dump();
  EXPECT_TRUE(dump.at("hooks").empty());
  EXPECT_TRUE(dump.at("observers").at("darwin").empty());
  EXPECT_TRUE(dump.at("bundlesLoaded").empty());
  EXPECT_TRUE(dump.at("shared").at("iconViews").empty());
  EXPECT_TRUE(dump.at("shared").at("folders").empty());
  EXPECT_EQ(dump.at("shared").at("hasUnlockedOnce"), false);
  EXPECT_EQ(dump.at("shared").at("verticalOffset"), 81);  // 568 / 7, truncated
  EXPECT_EQ(dump.at("shared").at("originToStartFrom"), 0);
  EXPECT_TRUE(viewOf(dump, json(iconViewId(dump, kMail))).at("recognizers").empty());

  EXPECT_TRUE(phone->gesture(kMail, "swipeUp", 0));
  phone.settle();
  EXPECT_FALSE(panelIsOpen(phone.dump()));
}

TEST(Settings, EnabledSubscribesAndLoadsTheWebViewFrameworkFromItsRelease) {
  auto startOn = [](double coreFoundationVersion) {
    auto config = smallPhone();
    config.coreFoundationVersion = coreFoundationVersion;
    config.screen.height = 480;
    Phone phone(config, false);
    return phone.dump();
  };
  auto atThreshold = startOn(1140.1);
  EXPECT_EQ(atThreshold.at("bundlesLoaded"), json::array({kWebKitBundlePath}));
  EXPECT_EQ(atThreshold.at("observers").at("darwin"), json::array({kPreferencesChangedNotification}));
  EXPECT_EQ(atThreshold.at("shared").at("verticalOffset"), 68);  // 480 / 7, truncated

  EXPECT_TRUE(startOn(1140.09).at("bundlesLoaded").empty());
}

TEST(Settings, AChangeAddsTheNewGestureAndKeepsTheOldOne) {
  Phone phone;
  auto settings = smallPhone().settings;
  settings.activationMethod = 2;
  phone->settings(settings);
  phone.settle();
  EXPECT_EQ(phone.dump().at("shared").at("activationMethod"), 2);

  for (const char* gesture : {"swipeUp", "doubleTap"}) {
    SCOPED_TRACE(gesture);
    phone.open(kMaps, gesture);
    EXPECT_TRUE(panelIsOpen(phone.dump()));
    phone->home(true);
    phone.settle();
    EXPECT_FALSE(panelIsOpen(phone.dump()));
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
    Phone phone(config, false);
    auto alertsBefore = phone.dump().at("alerts").size();

    phone->unlock();
    phone.settle();
    auto dump = phone.dump();
    const auto& alerts = dump.at("alerts");
    ASSERT_EQ(alerts.size() - alertsBefore, kApplications.size());
    EXPECT_EQ(alerts.back().at("title"), "Tessel");
    EXPECT_EQ(alerts.back().at("message"),
              "Something has gone wrong! Please adjust your Activation method in Tessel Settings.");
    EXPECT_EQ(alerts.back().at("cancel"), "Dismiss");
    for (const auto& id : windowTree(dump)) {
      const auto& view = dump.at("views").at(id);
      if (view.contains("recognizers")) {
        EXPECT_TRUE(view.at("recognizers").empty()) << id;
      }
    }

    EXPECT_TRUE(phone->layout(std::string(kMail)));
    phone.settle();
    EXPECT_EQ(phone.dump().at("alerts").size(), alerts.size() + 1);
  }
}

}  // namespace
}  // namespace tessel::testing
