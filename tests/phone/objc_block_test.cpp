#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include "phone/objc/block.h"
#include "phone/objc/runtime.h"

namespace tessel::objc {
namespace {

// Counts the copies of itself that are alive.
struct LiveCount {
  explicit LiveCount(int* live) : live(live) { ++*live; }
  LiveCount(const LiveCount& other) : live(other.live) { ++*live; }
  LiveCount& operator=(const LiveCount&) = delete;
  ~LiveCount() { --*live; }
  int* live;
};

TEST(ObjcRuntime, BlockCapturingSharedPtrIsFreedOnce) {
  auto state = std::make_shared<int>(0);
  {
    Block<void()> block = makeBlock(std::function<void()>([state] { ++*state; }));
    EXPECT_EQ(state.use_count(), 2);  // ours and the heap block's, no stray copies
    {
      Block<void()> copy = block;  // a heap block is shared, not copied again
      EXPECT_EQ(copy.get(), block.get());
      EXPECT_EQ(state.use_count(), 2);
      copy();
    }
    EXPECT_EQ(state.use_count(), 2);
    block.get()();  // as the host calls it
    EXPECT_EQ(*state, 2);
  }
  EXPECT_EQ(state.use_count(), 1);
}

TEST(ObjcRuntime, CapturedStateOutlivesTheMakerUntilTheLastRelease) {
  int live = 0;
  Block<int()>::Pointer raw = nullptr;
  {
    LiveCount counted(&live);
    Block<int()> block = makeBlock<int()>([counted] { return *counted.live; });
    EXPECT_EQ(live, 2);
    raw = reinterpret_cast<Block<int()>::Pointer>(_Block_copy(reinterpret_cast<const void*>(block.get())));
  }
  // The maker and its Block are gone; the runtime's own reference keeps the state.
  EXPECT_EQ(live, 1);
  EXPECT_EQ(raw(), 1);
  _Block_release(reinterpret_cast<const void*>(raw));
  EXPECT_EQ(live, 0);
}

TEST(ObjcRuntime, BlockTakingBoolPassesItsArgument) {
  std::vector<bool> finished;
  Block<void(BOOL)> completion = makeBlock<void(BOOL)>([&finished](BOOL done) { finished.push_back(done != 0); });
  completion.get()(BOOL{1});
  completion(BOOL{0});
  EXPECT_EQ(finished, (std::vector<bool>{true, false}));

  Block<double(double, double)> scale =
      makeBlock<double(double, double)>([](double value, double factor) { return value * factor; });
  EXPECT_EQ(scale.get()(1.5, 4.0), 6.0);
}

TEST(ObjcRuntime, EmptyBlockYieldsZero) {
  Block<double()> empty;
  EXPECT_FALSE(empty);
  EXPECT_EQ(empty(), 0.0);
  EXPECT_EQ(empty.object(), nullptr);
}

TEST(ObjcRuntime, ExceptionInBlockDoesNotEscape) {
  int entered = 0;
  Block<long(long)> failing = makeBlock<long(long)>([&entered](long) -> long {
    ++entered;
    throw std::runtime_error("failed");
  });
  long result = -1;
  EXPECT_NO_THROW(result = failing.get()(3));
  EXPECT_EQ(result, 0);
  EXPECT_EQ(entered, 1);
}

}  // namespace
}  // namespace tessel::objc
