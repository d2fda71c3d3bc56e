#include <gtest/gtest.h>

#include "cli/serve/touch_classifier.h"

namespace tessel::cli::serve {
void PrintTo(const TouchOutcome& o, std::ostream* os) {
  *os << "{kind " << static_cast<int>(o.kind) << " at " << o.point.x << "," << o.point.y << " " << o.icon << " "
      << o.gesture << " hold " << o.hold << " step " << o.pageStep << "}";
}
}  // namespace tessel::cli::serve

// How a finger's downs, moves and ups become the gestures the phone gets.
namespace {

using tessel::cli::serve::TouchClassifier;
using tessel::cli::serve::TouchOutcome;
using tessel::cli::serve::TouchTarget;
using Kind = TouchOutcome::Kind;

constexpr double kLong = TouchClassifier::kLongPress;
constexpr double kWindow = TouchClassifier::kMultiTapWindow;

class ServeTouch : public ::testing::Test {
 protected:
  // The icon "mail" stands at x < 100; the rest of the screen is no icon.
  void iconTakes(std::set<std::string> gestures) { takes_ = std::move(gestures); }
  TouchClassifier::Lookup lookup() {
    return [this](const tessel::host::Point& p) {
      ++lookups_;
      return p.x < 100 ? TouchTarget{"mail", takes_} : TouchTarget{};
    };
  }
  std::vector<TouchOutcome> press(double x, double y, double t) { return touches_.down({x, y}, t, lookup()); }
  std::vector<TouchOutcome> release(double x, double y, double t) { return touches_.up({x, y}, t); }
  std::vector<TouchOutcome> click(double x, double y, double t) {
    auto out = press(x, y, t);
    auto more = release(x, y, t + 0.08);
    out.insert(out.end(), more.begin(), more.end());
    return out;
  }

  TouchClassifier touches_;
  std::set<std::string> takes_;
  int lookups_ = 0;
};

TouchOutcome gesture(const std::string& name, double x, double y, double hold = 0) {
  TouchOutcome outcome;
  outcome.kind = Kind::iconGesture;
  outcome.icon = "mail";
  outcome.gesture = name;
  outcome.point = {x, y};
  outcome.hold = hold;
  return outcome;
}

TouchOutcome tap(double x, double y) {
  TouchOutcome outcome;
  outcome.point = {x, y};
  return outcome;
}

TEST_F(ServeTouch, DraggingUpOrDownOnAnIconSwipesItAndSidewaysTurnsThePage) {
  press(50, 300, 0);
  touches_.move({50, 250}, 0.05);
  EXPECT_EQ(release(52, 200, 0.1), std::vector{gesture("swipeUp", 50, 300)});

  press(50, 300, 1);
  EXPECT_EQ(release(40, 360, 1.1), std::vector{gesture("swipeDown", 50, 300)});

  // Off the icons a vertical swipe is nothing; sideways, the page turns
  // the way the finger pushes it.
  press(200, 300, 2);
  EXPECT_TRUE(release(200, 200, 2.1).empty());
  press(300, 300, 3);
  auto left = release(150, 310, 3.1);
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].kind, Kind::pageSwipe);
  EXPECT_EQ(left[0].pageStep, 1);
  press(150, 300, 4);
  EXPECT_EQ(release(300, 290, 4.1).at(0).pageStep, -1);
}

TEST_F(ServeTouch, ATapIsDeliveredAtOnceWhereNothingCountsTaps) {
  EXPECT_EQ(click(50, 300, 0), std::vector{tap(50, 300)});
  EXPECT_EQ(click(200, 500, 0.2), std::vector{tap(200, 500)});
  // A small wobble is still a tap.
  press(200, 500, 1);
  touches_.move({205, 503}, 1.05);
  EXPECT_EQ(release(206, 504, 1.1), std::vector{tap(200, 500)});
}

TEST_F(ServeTouch, QuickTapsOnAnIconThatCountsThemAddUp) {
  iconTakes({"doubleTap"});
  EXPECT_TRUE(click(50, 300, 0).empty()) << "the first tap waits for a second";
  EXPECT_EQ(click(52, 302, 0.2), std::vector{gesture("doubleTap", 50, 300)});

  iconTakes({"tripleTap"});
  EXPECT_TRUE(click(50, 300, 2).empty());
  EXPECT_TRUE(click(50, 300, 2.2).empty());
  EXPECT_EQ(click(50, 300, 2.4), std::vector{gesture("tripleTap", 50, 300)});

  // Two taps where three are counted come to one plain tap once no third
  // follows.
  EXPECT_TRUE(click(50, 300, 4).empty());
  EXPECT_TRUE(click(50, 300, 4.2).empty());
  EXPECT_TRUE(touches_.poll(4.28 + kWindow - 0.01).empty());
  EXPECT_EQ(touches_.poll(4.28 + kWindow + 0.01), std::vector{tap(50, 300)});
}

TEST_F(ServeTouch, TapsTooSlowOrTooFarApartAreSeparateTaps) {
  iconTakes({"doubleTap"});
  EXPECT_TRUE(click(50, 300, 0).empty());
  // The second press comes after the window: the first tap goes alone.
  EXPECT_EQ(press(50, 300, 0.08 + kWindow + 0.05), std::vector{tap(50, 300)});
  EXPECT_TRUE(release(50, 300, 0.6).empty());
  EXPECT_EQ(touches_.poll(0.6 + kWindow + 0.01), std::vector{tap(50, 300)});

  // A quick second press elsewhere is no double tap either, and what is
  // under it is looked up afresh.
  EXPECT_TRUE(click(50, 300, 2).empty());
  int before = lookups_;
  EXPECT_EQ(press(50, 400, 2.2), std::vector{tap(50, 300)});
  EXPECT_EQ(lookups_, before + 1);
}

TEST_F(ServeTouch, APressThatStaysIsALongPressAndAfterATapATapAndHold) {
  press(50, 300, 0);
  EXPECT_TRUE(touches_.poll(kLong - 0.01).empty());
  EXPECT_EQ(touches_.poll(kLong + 0.01), std::vector{gesture("hold", 50, 300, kLong)});
  EXPECT_TRUE(touches_.poll(2).empty()) << "one long press per press";
  EXPECT_TRUE(release(50, 300, 2.5).empty());

  iconTakes({"tapAndHold"});
  EXPECT_TRUE(click(50, 300, 5).empty());
  press(50, 300, 5.2);
  EXPECT_EQ(touches_.poll(5.2 + kLong + 0.01), std::vector{gesture("tapAndHold", 50, 300, kLong)});
  EXPECT_TRUE(release(50, 300, 6.5).empty());

  // Released late before any poll saw it, it is still long.
  press(50, 300, 8);
  EXPECT_EQ(release(50, 300, 8 + kLong + 0.2), std::vector{gesture("hold", 50, 300, kLong)});
}

TEST_F(ServeTouch, ALongPressNeedsAStillFingerOnAnIcon) {
  press(50, 300, 0);
  touches_.move({50, 285}, 0.1);  // more than the slop, less than a swipe
  EXPECT_TRUE(touches_.poll(1).empty());
  EXPECT_EQ(release(50, 290, 1.1), std::vector{tap(50, 300)}) << "it ends as a tap";

  press(200, 300, 3);
  EXPECT_TRUE(touches_.poll(4).empty()) << "no icon there";
  EXPECT_TRUE(release(200, 300, 4.1).empty());
}

TEST_F(ServeTouch, ACancelledPressDoesNothing) {
  press(50, 300, 0);
  EXPECT_TRUE(touches_.cancel().empty());
  EXPECT_FALSE(touches_.fingerDown());
  EXPECT_TRUE(release(50, 100, 0.2).empty());
  EXPECT_TRUE(touches_.poll(5).empty());
}

}  // namespace
