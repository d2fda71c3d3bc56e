#include <map>
#include <memory>

#include <gtest/gtest.h>

#include "host/host.h"
#include "host/method_hook.h"

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
  EXPECT_FALSE(empty);
  EXPECT_FALSE(empty(3));
  Previous<Ref<View>(int)> noView;
  EXPECT_FALSE(noView(3));
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

// A host whose references are wrappers around objects it keeps elsewhere, as
// the phone's are: every wrapper names the platform object by a number, and
// the platform frees an object when told to.
struct Platform {
  std::map<int, Rect> live;
};
class WrapperView : public virtual View {
 public:
  WrapperView(std::shared_ptr<Platform> platform, int object) : platform_(std::move(platform)), object_(object) {}
  const void* identity() const override { return &platform_->live.at(object_); }
  std::shared_ptr<const WeakReference> weakReference(const std::shared_ptr<const Object>&) const override {
    class ByNumber : public WeakReference {
     public:
      ByNumber(std::shared_ptr<Platform> platform, int object) : platform_(std::move(platform)), object_(object) {}
      Ref<Object> load() const override {
        if (!platform_->live.count(object_)) return {};
        return make<WrapperView>(platform_, object_);
      }

     private:
      std::shared_ptr<Platform> platform_;
      int object_;
    };
    return std::make_shared<ByNumber>(platform_, object_);
  }
  Rect frame() const override { return platform_->live.at(object_); }

 private:
  std::shared_ptr<Platform> platform_;
  int object_;
};

TEST(References, WrappersOfOnePlatformObjectAreOneObject) {
  auto platform = std::make_shared<Platform>();
  platform->live = {{1, Rect{1, 2, 3, 4}}, {2, Rect{}}};
  Ref<View> first = make<WrapperView>(platform, 1);
  Ref<View> again = make<WrapperView>(platform, 1);
  EXPECT_NE(first.get(), again.get());
  EXPECT_TRUE(first == again);
  EXPECT_FALSE(first == make<WrapperView>(platform, 2));

  // The weak reference outlives every wrapper and still reads the object.
  Weak<View> weak = first;
  first = {};
  again = {};
  EXPECT_TRUE(weak);
  EXPECT_EQ(weak->frame(), (Rect{1, 2, 3, 4}));
  EXPECT_TRUE(weak.lock() == make<WrapperView>(platform, 1));
  platform->live.erase(1);
  EXPECT_FALSE(weak);
  EXPECT_EQ(weak->frame(), Rect{});
}

}  // namespace
}  // namespace tessel::host
