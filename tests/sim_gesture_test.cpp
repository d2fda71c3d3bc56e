// Gestures on home-screen icons: which recognizer takes a gesture, and when
// its action is sent.

#include <gtest/gtest.h>

#include "sim/held_press.h"
#include "sim/home_screen.h"
#include "sim/touch_input.h"
#include "sim_test_host.h"

namespace tessel::sim::testing {
namespace {

constexpr const char* kMail = "com.example.mail";

WorldConfig homeWithMail() {
  WorldConfig config;
  config.pages = {{kMail, "com.example.maps"}};
  return config;
}

class Gestures : public ::testing::Test {
 protected:
  void SetUp() override {
    host.runTurn([&] { host.buildHomeScreen(); });
  }

  std::shared_ptr<SimIconView> mailView() {
    auto* home = host.homeScreen();
    return home->iconViewFor(home->iconFor(kMail).get());
  }
  host::Ref<host::GestureRecognizer> attach(host::Ref<host::GestureRecognizer> recognizer) {
    mailView()->addGestureRecognizer(recognizer);
    return recognizer;
  }
  host::Ref<host::GestureRecognizer> swipe(std::uint64_t direction) {
    auto r = host.makeSwipeGestureRecognizer(target, host::action::handleIconHeldFromSender);
    r->setDirection(direction);
    return attach(r);
  }
  host::Ref<host::GestureRecognizer> tap(std::uint64_t taps) {
    auto r = host.makeTapGestureRecognizer(target, host::action::handleIconHeldFromSender);
    r->setNumberOfTapsRequired(taps);
    return attach(r);
  }
  host::Ref<host::GestureRecognizer> longPress(std::uint64_t taps) {
    auto r = host.makeLongPressGestureRecognizer(target, host::action::handleIconHeldFromSender);
    r->setNumberOfTapsRequired(taps);
    return attach(r);
  }
  bool perform(const std::string& gesture, double hold = 1.0, double pressedFor = 0) {
    bool known = false;
    host.runTurn([&] { known = performGesture(host, kMail, gesture, hold, pressedFor); });
    return known;
  }

  SimHost host{homeWithMail(), ""};
  std::shared_ptr<ActionLog> log = std::make_shared<ActionLog>(host);
  host::Ref<host::Object> target = host.makeController(host.runtime()->getClass("NSObject"), log);
};

TEST_F(Gestures, ASwipeSendsItsActionOnceRightAway) {
  auto up = swipe(4);
  ASSERT_TRUE(perform("swipeUp"));
  host.advanceTo(5);
  ASSERT_EQ(log->calls.size(), 1u);
  EXPECT_EQ(log->calls[0].selector, "handleIconHeldFromSender:");
  EXPECT_EQ(log->calls[0].sender, host::identityOf(up));
  EXPECT_EQ(log->calls[0].time, 0);

  EXPECT_TRUE(perform("swipeDown"));
  EXPECT_EQ(log->calls.size(), 1u) << "an upward swipe recognizer ignores a downward swipe";
}

TEST_F(Gestures, OfTheRecognizersThatTakeAGestureOnlyTheFirstAttachedRecognizes) {
  swipe(1);  // the default direction, right
  auto first = tap(2);
  tap(2);
  tap(3);
  perform("doubleTap");
  ASSERT_EQ(log->calls.size(), 1u);
  EXPECT_EQ(log->calls[0].sender, host::identityOf(first));
  perform("tripleTap");
  EXPECT_EQ(log->calls.size(), 2u);
}

TEST_F(Gestures, ALongPressBeginsAfterHalfASecondAndEndsWhenTheFingerLifts) {
  host.advanceTo(2);
  auto press = longPress(0);
  perform("hold", 1.5);
  EXPECT_TRUE(log->calls.empty());
  host.advanceTo(10);
  ASSERT_EQ(log->calls.size(), 2u);
  EXPECT_DOUBLE_EQ(log->calls[0].time, 2.5);
  EXPECT_DOUBLE_EQ(log->calls[1].time, 3.5);
  EXPECT_EQ(log->calls[1].sender, host::identityOf(press));

  perform("hold", 0.3);
  host.advanceTo(20);
  EXPECT_EQ(log->calls.size(), 2u) << "lifted before the press began";

  // Made known after the finger has been down a while, as a live finger's
  // is: its moments come that much sooner, and none before now.
  perform("hold", 1.0, 0.2);
  host.advanceTo(30);
  perform("hold", 0.6, 0.6);
  host.advanceTo(40);
  ASSERT_EQ(log->calls.size(), 6u);
  EXPECT_DOUBLE_EQ(log->calls[2].time, 20.3);
  EXPECT_DOUBLE_EQ(log->calls[3].time, 20.8);
  EXPECT_DOUBLE_EQ(log->calls[4].time, 30);
  EXPECT_DOUBLE_EQ(log->calls[5].time, 30);
}

TEST_F(Gestures, AHeldPressBeginsHalfASecondAfterItsFingerWentDownAndEndsWhenItLifts) {
  EXPECT_FALSE(HeldPress::press(host, kMail, "hold", 0)) << "no long-press recognizer on the icon";
  auto recognizer = longPress(0);
  host.advanceTo(2);
  std::shared_ptr<HeldPress> press;
  host.runTurn([&] { press = HeldPress::press(host, kMail, "hold", 0.2); });
  ASSERT_TRUE(press);
  host.advanceTo(3);
  host.runTurn([&] { press->lift(); });
  host.runTurn([&] { press->lift(); });  // one lift ends it; a second does nothing
  ASSERT_EQ(log->calls.size(), 2u);
  EXPECT_DOUBLE_EQ(log->calls[0].time, 2.3);
  EXPECT_DOUBLE_EQ(log->calls[1].time, 3);
  EXPECT_EQ(log->calls[1].sender, host::identityOf(recognizer));

  // Known after the half second, it begins at once.
  host.runTurn([&] { press = HeldPress::press(host, kMail, "hold", 0.7); });
  host.advanceTo(3.01);
  EXPECT_EQ(log->calls.size(), 3u);
  host.runTurn([&] { press->lift(); });

  // Lifted before it began, it never was a long press.
  host.runTurn([&] { press = HeldPress::press(host, kMail, "hold", 0); });
  host.advanceTo(3.2);
  host.runTurn([&] { press->lift(); });
  host.advanceTo(10);
  EXPECT_EQ(log->calls.size(), 4u);
}

TEST_F(Gestures, ATapAndHoldNeedsTheTapAndAPlainHoldMustHaveNone) {
  longPress(1);
  perform("hold");
  host.advanceTo(5);
  EXPECT_TRUE(log->calls.empty());
  perform("tapAndHold");
  host.advanceTo(10);
  EXPECT_EQ(log->calls.size(), 2u);
}

TEST_F(Gestures, ARecognizerWantingTwoFingersTakesNoOneFingerGesture) {
  auto r = swipe(4);
  r->setNumberOfTouchesRequired(2);
  perform("swipeUp");
  EXPECT_TRUE(log->calls.empty());
}

TEST_F(Gestures, APlainTapLaunchesTheApplicationUnlessEditingOrTaken) {
  perform("tap");
  EXPECT_EQ(host.recorder().launches(), std::vector<std::string>{kMail});
  host.homeScreen()->setEditing(true);
  perform("tap");
  EXPECT_EQ(host.recorder().launches().size(), 1u);
  host.homeScreen()->setEditing(false);
  tap(1);
  perform("tap");
  EXPECT_EQ(host.recorder().launches().size(), 1u);
  EXPECT_EQ(log->calls.size(), 1u);
}

TEST_F(Gestures, UnknownIconsAndGesturesAreRefused) {
  bool known = true;
  host.runTurn([&] { known = performGesture(host, "com.example.none", "tap", 1); });
  EXPECT_FALSE(known);
  EXPECT_FALSE(perform("pinch"));
  EXPECT_TRUE(host.recorder().launches().empty());
}

TEST_F(Gestures, ATapAtAPointReachesTheFrontmostViewThere) {
  auto view = mailView();
  host::Rect inWindow = view->convertRectToView(view->bounds(), nullptr);
  host.runTurn([&] { tapAt(host, {inWindow.x + 30, inWindow.y + 30}); });
  EXPECT_EQ(host.recorder().launches(), std::vector<std::string>{kMail});

  auto cover = host.buttonWithType(0);
  cover->setFrame(host.screenBounds());
  cover->addTargetActionForControlEvents(target, host::action::removeTesselViewsFromView, 64);
  cover->addTargetActionForControlEvents(target, host::action::keyboardWillShowOrHide, 1);
  host.window()->addSubview(cover);
  std::string taken;
  host.runTurn([&] { taken = tapAt(host, {inWindow.x + 30, inWindow.y + 30}); });
  EXPECT_EQ(taken, "button");
  ASSERT_EQ(log->calls.size(), 1u);
  EXPECT_EQ(log->calls[0].selector, "removeTesselViewsFromView:");
  EXPECT_EQ(host.recorder().launches().size(), 1u);
}

}  // namespace
}  // namespace tessel::sim::testing
