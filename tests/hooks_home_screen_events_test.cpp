// What the replaced host methods make of the home screen's own events.

#include <string>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

std::size_t recognizers(const json& dump, const std::string& bundleIdentifier) {
  return viewOf(dump, json(iconViewId(dump, bundleIdentifier))).at("recognizers").size();
}

std::size_t timesListed(const json& dump, const std::string& bundleIdentifier) {
  const auto& iconViews = dump.at("shared").at("iconViews");
  return std::count(iconViews.begin(), iconViews.end(), json(iconViewId(dump, bundleIdentifier)));
}

TEST(HomeScreenEvents, LayoutsRegisterApplicationIconsEachTimeAndRememberEveryViewOnce) {
  Phone phone(smallPhone(), /*unlock*/ false);
  auto before = phone.dump();
  for (int pass = 0; pass < 3; ++pass) {
    ASSERT_TRUE(phone->layout(std::string(kMail)));
    ASSERT_TRUE(phone->layout(std::string(kBookmark)));
    phone.settle();
  }
  auto after = phone.dump();
  EXPECT_EQ(recognizers(after, kMail), recognizers(before, kMail) + 3);
  EXPECT_EQ(timesListed(after, kMail), 1u);
  // A web clip is remembered but gets no gesture.
  EXPECT_EQ(recognizers(after, kBookmark), 0u);
  EXPECT_EQ(timesListed(after, kBookmark), 1u);
}

TEST(HomeScreenEvents, OnlyTheFirstUnlockRegistersEveryApplication) {
  Phone phone(smallPhone(), /*unlock*/ false);
  auto locked = phone.dump();
  phone->unlock();
  phone.settle();
  auto first = phone.dump();
  EXPECT_EQ(first.at("shared").at("hasUnlockedOnce"), true);
  for (const char* app : {kMail, kMaps, kPhone}) {
    SCOPED_TRACE(app);
    EXPECT_EQ(recognizers(first, app), recognizers(locked, app) + 1);
  }
  phone->unlock();
  phone.settle();
  EXPECT_EQ(recognizers(phone.dump(), kMail), recognizers(first, kMail));
}

TEST(HomeScreenEvents, FoldersAndTheNotificationListAreRememberedButNotTheRootFolder) {
  Phone phone;
  auto shared = phone.dump().at("shared");
  EXPECT_EQ(shared.at("folders").size(), 1u);  // Tools only
  EXPECT_FALSE(shared.at("bulletinViewController").is_null());
}

TEST(HomeScreenEvents, HomeButtonPressesTheHostDidNotHandleLeaveThePanelOpen) {
  Phone phone;
  phone.open(kMail);
  phone->home(false);
  phone->doubleHome(false);
  phone.settle();
  EXPECT_TRUE(panelIsOpen(phone.dump()));
}

}  // namespace
}  // namespace tessel::testing
