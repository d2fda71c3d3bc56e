// The virtual clock, the main queue and the layout pass that ends each turn.

#include <gtest/gtest.h>

#include "sim/sim_main_queue.h"
#include "sim/library_objects.h"
#include "sim_test_host.h"

namespace tessel::sim::testing {
namespace {

class MainQueue : public ::testing::Test {
 protected:
  SimHost host{WorldConfig{}, ""};
  std::vector<std::pair<std::string, double>> ran;
  std::function<void()> note(std::string name) {
    return [this, name] { ran.emplace_back(name, host.time()); };
  }
};

TEST_F(MainQueue, BlocksRunInTimeOrderThenInSubmissionOrder) {
  auto queue = host.mainQueue();
  queue->after(200'000'000, note("after 0.2"));
  queue->async(note("async 1"));
  queue->after(100'000'000, note("after 0.1"));
  queue->async(note("async 2"));
  queue->after(100'000'000, note("after 0.1 again"));
  EXPECT_TRUE(ran.empty()) << "nothing runs inside the submitting turn";

  host.advanceTo(0.15);
  EXPECT_EQ(ran, (std::vector<std::pair<std::string, double>>{
                     {"async 1", 0}, {"async 2", 0}, {"after 0.1", 0.1}, {"after 0.1 again", 0.1}}));
  EXPECT_DOUBLE_EQ(host.time(), 0.15);

  host.advanceTo(1);
  ASSERT_EQ(ran.size(), 5u);
  EXPECT_EQ(ran.back().first, "after 0.2");
  EXPECT_NEAR(ran.back().second, 0.2, 1e-12);
  EXPECT_DOUBLE_EQ(host.time(), 1);
}

TEST_F(MainQueue, ABlockQueuedByABlockRunsOnALaterTurnAtTheSameTime) {
  auto queue = host.mainQueue();
  queue->after(500'000'000, [&] {
    note("outer")();
    queue->async(note("inner"));
    note("outer end")();
  });
  host.advanceTo(2);
  EXPECT_EQ(ran, (std::vector<std::pair<std::string, double>>{{"outer", 0.5}, {"outer end", 0.5}, {"inner", 0.5}}));
}

TEST_F(MainQueue, TheHostClockCountsFromTheEpoch) {
  host.advanceTo(2.5);
  EXPECT_DOUBLE_EQ(host.now(), WorldConfig{}.clockEpoch + 2.5);
}

TEST_F(MainQueue, ViewsAddedOrResizedAreLaidOutAtTheEndOfTheTurn) {
  auto counter = std::make_shared<LayoutCounter>();
  auto cls = host.runtime()->getClass("TesselGenericNotificationView");
  auto view = host.makeCustomView(cls, {0, 0, 100, 100}, counter);
  EXPECT_EQ(viewDelegateOf(view), counter.get());

  host.runTurn([&] {
    host.window()->addSubview(view);
    EXPECT_EQ(counter->passes, 0) << "layout waits for the end of the turn";
  });
  EXPECT_EQ(counter->passes, 1);

  host.runTurn([&] { view->setFrame({5, 5, 100, 100}); });
  EXPECT_EQ(counter->passes, 1) << "a move without a new size needs no layout";
  host.runTurn([&] {
    view->setFrame({5, 5, 120, 100});
    view->setFrame({5, 5, 130, 100});
  });
  EXPECT_EQ(counter->passes, 2) << "one pass however often the size changed";
}

TEST_F(MainQueue, AViewOutsideAnyTreeIsLaidOutOnceItIsPutIntoOne) {
  auto counter = std::make_shared<LayoutCounter>();
  auto cls = host.runtime()->getClass("TesselGenericNotificationView");
  auto view = host.makeCustomView(cls, {0, 0, 10, 10}, counter);
  host.runTurn([&] { view->setFrame({0, 0, 20, 20}); });
  EXPECT_EQ(counter->passes, 0);
  host.runTurn([&] { host.window()->addSubview(view); });
  EXPECT_EQ(counter->passes, 1);
}

// A view whose layout resizes another view: the pass goes on until nothing
// needs layout.
class Resizer : public LayoutCounter {
 public:
  host::Weak<host::View> other;

 protected:
  void layout() override {
    LayoutCounter::layout();
    if (auto target = other.lock()) target->setFrame({0, 0, 50.0 + passes, 50});
  }
};

TEST_F(MainQueue, LayoutThatCausesLayoutRepeatsWithinTheTurn) {
  auto cls = host.runtime()->getClass("TesselGenericNotificationView");
  auto first = std::make_shared<Resizer>();
  auto second = std::make_shared<LayoutCounter>();
  auto a = host.makeCustomView(cls, {0, 0, 10, 10}, first);
  auto b = host.makeCustomView(cls, {0, 0, 10, 10}, second);
  first->other = b;
  host.runTurn([&] { host.window()->addSubview(a); });
  EXPECT_EQ(first->passes, 1);
  host.runTurn([&] { host.window()->addSubview(b); });
  EXPECT_EQ(second->passes, 1);
  host.runTurn([&] { a->setFrame({0, 0, 11, 10}); });
  EXPECT_EQ(first->passes, 2);
  EXPECT_EQ(second->passes, 2) << "resized by the first view's layout in the same turn";
}

}  // namespace
}  // namespace tessel::sim::testing
