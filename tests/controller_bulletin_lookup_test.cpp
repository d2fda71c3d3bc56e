// Finding an application's notifications on both generations of the host.

#include <gtest/gtest.h>

#include "controller/tessel_notification_controller.h"
#include "controller_world_support.h"

namespace tessel::testing {
namespace {

TEST(BulletinLookup, FindsTheSectionByExactIdentifierOnBothGenerations) {
  for (double version : {1751.108, 800.0}) {
    SCOPED_TRACE(version);
    auto config = smallPhone();
    config.coreFoundationVersion = version;
    config.notifications = {{kMaps, {}}, {kNotes, {}}, {kMail, {{"Ana", "Lunch?", 1}, {"Ben", "Call me", 2}}}};
    Phone phone(config);
    auto* controller = &phone.library().sharedController();

    auto mail = controller->bulletinsForBundleIdentifier(kMail);
    ASSERT_TRUE(mail);
    ASSERT_EQ(mail->size(), 2u);
    EXPECT_EQ((*mail)[0]->title(), "Ana");
    EXPECT_EQ((*mail)[1]->message(), "Call me");
    ASSERT_TRUE(controller->bulletinsForBundleIdentifier(kNotes));
    EXPECT_TRUE(controller->bulletinsForBundleIdentifier(kNotes)->empty());
    EXPECT_FALSE(controller->bulletinsForBundleIdentifier("com.example.MAIL"));
    EXPECT_FALSE(controller->bulletinsForBundleIdentifier(kPhone));
  }
}

}  // namespace
}  // namespace tessel::testing
