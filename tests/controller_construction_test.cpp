#include <gtest/gtest.h>

#include "controller/tessel_notification_controller.h"
#include "tests/controller_world_support.h"

namespace tessel {
namespace {

using namespace tessel::testing;

// The window's own subviews with the given tag.
int countTagged(const json& dump, int tag) {
  int count = 0;
  for (const auto& id : viewOf(dump, dump.at("window")).at("subviews")) count += viewOf(dump, id).at("tag") == tag;
  return count;
}

TEST(Construction, WithoutAnApplicationOnlyTheArrowIsShownOnEitherLookup) {
  // From release 1140.1 one application is asked for; below it, the first of
  // a list, which here is empty.
  for (double release : {1751.108, 1140.0}) {
    SCOPED_TRACE(release);
    auto config = smallPhone();
    config.coreFoundationVersion = release;
    Phone phone(config);
    auto before = viewOf(phone.dump(), phone.dump().at("window")).at("subviews").size();
    phone.library().sharedController().showTesselForBundleIdentifier("com.example.unknown");
    phone.settle();
    auto dump = phone.dump();
    EXPECT_EQ(countTagged(dump, 1334), 1) << "the arrow view stays";
    EXPECT_EQ(countTagged(dump, 1333), 0) << "no icon copy";
    EXPECT_TRUE(dump.at("shared").at("iconView").is_null());
    const auto& button = dump.at("controller").at("dismissButton");
    const auto& panel = dump.at("controller").at("genericView");
    ASSERT_TRUE(button.is_string()) << "the button is made";
    ASSERT_TRUE(panel.is_string()) << "the panel is made";
    EXPECT_TRUE(viewOf(dump, button).at("superview").is_null());
    EXPECT_TRUE(viewOf(dump, panel).at("superview").is_null());
    // The arrow view, and what the layout passes of the unshown panel never add.
    EXPECT_EQ(viewOf(dump, dump.at("window")).at("subviews").size(), before + 1);
  }
}

}  // namespace
}  // namespace tessel
