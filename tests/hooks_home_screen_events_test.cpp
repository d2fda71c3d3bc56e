// What the replaced host methods make of the home screen's own events, on a
// simulated phone.

#include <string>

#include <gtest/gtest.h>

#include "controller_world_support.h"

namespace tessel::testing {
namespace {

std::size_t recognizerCount(const json& dump, const std::string& bundleIdentifier) {
  return viewOf(dump, json(iconViewId(dump, bundleIdentifier))).at("recognizers").size();
}

std::size_t occurrences(const json& list, const std::string& id) {
  std::size_t count = 0;
  for (const auto& entry : list) count += entry == id ? 1 : 0;
  return count;
}

TEST(HomeScreenEvents, EveryLayoutOfAnApplicationIconAddsOneRecognizerAndRemembersTheViewOnce) {
  Phone phone;
  auto before = phone.dump();
  std::string mail = iconViewId(before, kMail);
  ASSERT_FALSE(mail.empty());
  EXPECT_EQ(occurrences(before.at("shared").at("iconViews"), mail), 1u);

  for (int pass = 0; pass < 3; ++pass) {
    ASSERT_TRUE(phone->layout(std::string(kMail)));
    phone.settle();
  }

  auto after = phone.dump();
  EXPECT_EQ(recognizerCount(after, kMail), recognizerCount(before, kMail) + 3);
  EXPECT_EQ(occurrences(after.at("shared").at("iconViews"), mail), 1u);
  for (const auto& recognizer : viewOf(after, json(mail)).at("recognizers")) {
    EXPECT_EQ(recognizer.at("kind"), "swipe");
    EXPECT_EQ(recognizer.at("direction"), 4);
  }
}

TEST(HomeScreenEvents, AWebClipIsRememberedButGetsNoGesture) {
  Phone phone;
  ASSERT_TRUE(phone->layout(std::string(kBookmark)));
  phone.settle();

  auto dump = phone.dump();
  std::string bookmark = iconViewId(dump, kBookmark);
  ASSERT_FALSE(bookmark.empty());
  EXPECT_EQ(occurrences(dump.at("shared").at("iconViews"), bookmark), 1u);
  EXPECT_TRUE(viewOf(dump, json(bookmark)).at("recognizers").empty());
}

TEST(HomeScreenEvents, OnlyTheFirstUnlockRegistersEveryApplication) {
  Phone phone(smallPhone(), /*unlock*/ false);
  auto locked = phone.dump();
  EXPECT_EQ(locked.at("shared").at("hasUnlockedOnce"), false);

  phone->unlock();
  phone.settle();
  auto first = phone.dump();
  EXPECT_EQ(first.at("shared").at("hasUnlockedOnce"), true);
  for (const char* app : {kMail, kMaps, kPhone}) {
    SCOPED_TRACE(app);
    EXPECT_EQ(recognizerCount(first, app), recognizerCount(locked, app) + 1);
  }

  phone->unlock();
  phone.settle();
  EXPECT_EQ(recognizerCount(phone.dump(), kMail), recognizerCount(first, kMail));
}

TEST(HomeScreenEvents, FoldersAndTheNotificationListAreRememberedButNotTheRootFolder) {
  Phone phone;
  auto dump = phone.dump();
  const auto& shared = dump.at("shared");
  EXPECT_EQ(shared.at("folders").size(), 1u);  // Tools; the root folder with the dock is left out
  EXPECT_FALSE(shared.at("bulletinViewController").is_null());
}

TEST(HomeScreenEvents, TheHomeButtonClosesThePanelOnlyWhenTheHostHandledIt) {
  Phone phone;
  phone.open(kMail);
  ASSERT_TRUE(panelIsOpen(phone.dump()));

  phone->home(false);
  phone->doubleHome(false);
  phone.settle();
  EXPECT_TRUE(panelIsOpen(phone.dump()));

  phone->doubleHome(true);
  phone.settle();
  EXPECT_FALSE(panelIsOpen(phone.dump()));
}

}  // namespace
}  // namespace tessel::testing
