#include <memory>

#include <gtest/gtest.h>

#include "controller/distinct_weak_list.h"
#include "host/view.h"

namespace tessel {
namespace {

// A view whose platform identity is given, as a phone reuses the address of
// a freed object for a new one.
class ViewAt : public host::View {
 public:
  explicit ViewAt(const void* identity) : identity_(identity) {}
  const void* identity() const override { return identity_; }

 private:
  const void* identity_;
};

const char addresses[3] = {};

TEST(DistinctWeakList, KeepsOrderAndHoldsEachObjectOnce) {
  DistinctWeakList<host::View> list;
  auto a = host::make<ViewAt>(&addresses[0]);
  auto b = host::make<ViewAt>(&addresses[1]);
  list.insert(a);
  list.insert(b);
  list.insert(a);
  list.insert(host::make<ViewAt>(&addresses[1]));  // another wrapper of b
  ASSERT_EQ(list.size(), 2u);
  EXPECT_TRUE(list[0].lock() == a);
  EXPECT_TRUE(list[1].lock() == b);
  EXPECT_TRUE(list.contains(b));
  EXPECT_FALSE(list.contains(host::make<ViewAt>(&addresses[2])));
}

TEST(DistinctWeakList, AFreedObjectIsNotHeldEvenWhenItsIdentityComesBack) {
  DistinctWeakList<host::View> list;
  auto first = host::make<ViewAt>(&addresses[0]);
  list.insert(first);
  first = {};
  auto successor = host::make<ViewAt>(&addresses[0]);
  EXPECT_FALSE(list.contains(successor));
  list.insert(successor);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_FALSE(list[0].lock());
  EXPECT_TRUE(list[1].lock() == successor);
  EXPECT_TRUE(list.contains(successor));
}

TEST(DistinctWeakList, NothingMatchesAnEntryWhoseObjectIsGone) {
  DistinctWeakList<host::View> list;
  list.insert({});
  EXPECT_EQ(list.size(), 1u);
  list.insert({});
  EXPECT_EQ(list.size(), 1u) << "the empty entry already stands for nothing";
  list.clear();
  EXPECT_TRUE(list.empty());
  EXPECT_FALSE(list.contains({}));
}

}  // namespace
}  // namespace tessel
