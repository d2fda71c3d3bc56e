#include <gtest/gtest.h>

#include "host/host.h"
#include "host/runtime.h"

namespace tessel::host {
namespace {

// A host-like object that is both a view and an icon view, as the
// substitute host's classes are (interfaces are virtual bases).
class SomeView : public virtual View {
 public:
  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame) override { frame_ = frame; }
  Rect frame_;
};
class SomeIconView : public SomeView, public virtual IconView {
 public:
  bool isInDock() const override { return true; }
};

TEST(MessagesToNothing, YieldZeroAndLeaveNoTrace) {
  Ref<IconView> nothing;
  EXPECT_FALSE(nothing);
  EXPECT_EQ(nothing->frame(), Rect{});
  EXPECT_FALSE(nothing->isInDock());
  EXPECT_FALSE(nothing->superview());
  // A chain through nothing reads as nothing all the way.
  EXPECT_EQ(nothing->superview()->convertRectToView(Rect{1, 2, 3, 4}, nothing), Rect{});
  EXPECT_FALSE(nothing->icon()->application()->bundleIdentifier());
  nothing->setFrame({1, 2, 3, 4});
  EXPECT_EQ(nothing->frame(), Rect{});
}

TEST(MessagesToNothing, PreviousImplementationOfNothingYieldsZero) {
  Previous<bool(int)> empty;
  EXPECT_FALSE(empty(3));
  Runtime runtime;  // installs nothing: every hook hands back an empty slot
  auto previous = hookMessage<bool(int)>(runtime, {}, "anything", [](int) { return true; });
  EXPECT_FALSE(previous);
  EXPECT_FALSE(previous(1));
}

TEST(References, IdentityIsTheObjectWhicheverInterfaceNamesIt) {
  auto concrete = std::make_shared<SomeIconView>();
  Ref<IconView> asIconView(concrete);
  Ref<View> asView(concrete);
  EXPECT_TRUE(asView == asIconView);
  EXPECT_TRUE(asIconView == asView);
  EXPECT_FALSE(asView == Ref<View>(std::make_shared<SomeView>()));
  EXPECT_TRUE(cast<IconView>(asView) == asIconView);
  EXPECT_FALSE(cast<IconView>(Ref<View>(std::make_shared<SomeView>())));
  EXPECT_TRUE(Ref<View>() == nullptr);
}

TEST(References, WeakReferenceReadsAsNothingOnceTheHostLetsGo) {
  auto owner = std::make_shared<SomeView>();
  owner->setFrame({1, 2, 3, 4});
  Weak<View> weak = Ref<View>(owner);
  EXPECT_TRUE(weak);
  EXPECT_EQ(weak->frame(), (Rect{1, 2, 3, 4}));
  owner.reset();
  EXPECT_FALSE(weak);
  EXPECT_EQ(weak->frame(), Rect{});
}

}  // namespace
}  // namespace tessel::host
