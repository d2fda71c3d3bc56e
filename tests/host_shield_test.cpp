// Whatever the library throws stops at the seam: every way the host calls
// into the library returns normally, with nothing or zero where it expects
// an answer.

#include <stdexcept>

#include <gtest/gtest.h>

#include "host/host.h"

namespace tessel::host {
namespace {

[[noreturn]] void fail() { throw std::runtime_error("library failure"); }

class ThrowingController : public ControllerDelegate {
 public:
  int calls = 0;

 protected:
  void iconHeld(const Ref<GestureRecognizer>&) override { ++calls, fail(); }
  void removeViews(const Ref<View>&) override { ++calls, fail(); }
  void keyboardChanged(const Ref<Notification>&) override { ++calls, fail(); }
};

class ThrowingView : public ViewDelegate {
 public:
  int calls = 0;

 protected:
  void layout() override { ++calls, fail(); }
  std::int64_t numberOfRows(const Ref<TableView>&, std::int64_t) override { return ++calls, fail(), 7; }
  Ref<TableViewCell> cellForRow(const Ref<TableView>&, const IndexPath&) override { return ++calls, fail(), nullptr; }
  void didSelectRow(const Ref<TableView>&, const IndexPath&) override { ++calls, fail(); }
};

TEST(Shield, EveryActionOfTheControllerReturnsWhateverItThrows) {
  ThrowingController controller;
  for (const auto* action :
       {&action::handleIconHeldFromSender, &action::removeTesselViewsFromView, &action::keyboardWillShowOrHide}) {
    EXPECT_NO_THROW((controller.*action->deliver)(make<View>()));
  }
  EXPECT_EQ(controller.calls, 3);
}

TEST(Shield, TheViewsLayoutAndTableAnswerNothingWhenTheyThrow) {
  ThrowingView view;
  EXPECT_NO_THROW(view.layoutSubviews());
  EXPECT_EQ(view.tableViewNumberOfRowsInSection({}, 0), 0);
  EXPECT_FALSE(view.tableViewCellForRowAtIndexPath({}, IndexPath::forRowInSection(0, 0)));
  EXPECT_NO_THROW(view.tableViewDidSelectRowAtIndexPath({}, IndexPath::forRowInSection(0, 0)));
  EXPECT_EQ(view.calls, 4);
}

TEST(Shield, QueuedAndAnimationBlocksStopWhatTheyThrow) {
  int ran = 0;
  Block block = [&] { ++ran, fail(); };
  Completion completion = [&](bool) { ++ran, fail(); };
  EXPECT_NO_THROW(block());
  EXPECT_NO_THROW(completion(true));
  EXPECT_EQ(ran, 2);
  // An empty block is a message to nothing.
  EXPECT_NO_THROW(Block()());
  EXPECT_NO_THROW(Completion()(false));
}

}  // namespace
}  // namespace tessel::host
