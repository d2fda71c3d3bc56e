#include <gtest/gtest.h>

#include <unordered_set>
#include <utility>

#include "phone/objc/autorelease_pool.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/implementation.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::objc {
namespace {

using namespace literals;

TEST(ObjcRuntime, StrongReferenceRetainsOnCopyAndReleasesOnDestroy) {
  Strong object = makeObject("NSObject");
  ASSERT_EQ(retainCountOf(object.get()), 1u);
  {
    Strong copy = object;
    EXPECT_EQ(retainCountOf(object.get()), 2u);
    Strong moved = std::move(copy);
    EXPECT_FALSE(copy);  // NOLINT(bugprone-use-after-move): a moved-from reference is empty
    EXPECT_EQ(retainCountOf(object.get()), 2u);
    Strong assigned;
    assigned = moved;
    EXPECT_EQ(retainCountOf(object.get()), 3u);
    Weak weak(object);
    EXPECT_EQ(retainCountOf(object.get()), 3u);
  }
  EXPECT_EQ(retainCountOf(object.get()), 1u);

  id handedOver = Strong::retain(object.get()).release();
  EXPECT_EQ(retainCountOf(object.get()), 2u);
  objc_release(handedOver);
  EXPECT_EQ(retainCountOf(object.get()), 1u);
}

TEST(ObjcRuntime, TwoReferencesToOneObjectCompareEqual) {
  Strong object = makeObject("NSObject");
  Strong other = makeObject("NSObject");
  Strong second = Strong::retain(object.get());
  Weak weak(object);
  Weak weakSecond(second.get());

  EXPECT_EQ(object, second);
  EXPECT_EQ(weak, object);
  EXPECT_EQ(weak, weakSecond);
  EXPECT_NE(object, other);
  EXPECT_NE(Weak(other), object);
  EXPECT_EQ(std::hash<Strong>()(object), std::hash<Strong>()(second));

  std::unordered_set<Strong> distinct{object, second, other, weak.lock()};
  EXPECT_EQ(distinct.size(), 2u);
}

TEST(ObjcRuntime, WeakReferenceReadsNilAfterFree) {
  Strong object = makeObject("UIView");
  Weak weak(object);
  Weak copied = weak;
  Weak moved = Weak(object);
  ASSERT_EQ(weak.lock(), object);
  ASSERT_EQ(copied.lock(), object);
  ASSERT_EQ(moved.lock(), object);

  object = nullptr;  // the last owner lets go: the object is deallocated

  EXPECT_FALSE(weak.lock());
  EXPECT_FALSE(copied.lock());
  EXPECT_FALSE(moved.lock());
  EXPECT_FALSE(Weak(weak).lock());
}

TEST(ObjcRuntime, WeakReferenceKeepsNothingAlive) {
  Weak weak;
  {
    Strong object = makeObject("NSObject");
    weak = Weak(object);
    Strong locked = weak.lock();
    EXPECT_EQ(retainCountOf(object.get()), 2u);
  }
  EXPECT_FALSE(weak.lock());
  EXPECT_FALSE(Weak().lock());
  EXPECT_FALSE(Weak(nullptr).lock());
}

TEST(ObjcRuntime, WeakReferenceReadsNilWhileObjectIsBeingDeallocated) {
  static Weak* watched = nullptr;
  static int deallocations = 0;
  static bool readNilInDealloc = false;
  deallocations = 0;
  ClassBuilder builder("TestWatchedObject", objc_getClass("NSObject"));
  builder.addMethod("dealloc"_sel, [](const Implementation<void()>& inherited, id self) {
    ++deallocations;
    readNilInDealloc = !watched->lock();  // locking must not revive the object
    inherited(self);
  });
  builder.registerClass();

  Strong object = makeObject("TestWatchedObject");
  Weak weak(object);
  watched = &weak;
  object = nullptr;
  watched = nullptr;

  EXPECT_EQ(deallocations, 1);
  EXPECT_TRUE(readNilInDealloc);
}

TEST(ObjcRuntime, AssociatedObjectLivesAsLongAsItsOwner) {
  static const char retainedKey = 0;
  static const char assignedKey = 0;
  Strong owner = makeObject("NSObject");
  Strong value = makeObject("NSObject");
  Strong unowned = makeObject("NSObject");

  objc_setAssociatedObject(owner.get(), &retainedKey, value.get(), OBJC_ASSOCIATION_RETAIN_NONATOMIC);
  objc_setAssociatedObject(owner.get(), &assignedKey, unowned.get(), OBJC_ASSOCIATION_ASSIGN);
  EXPECT_EQ(objc_getAssociatedObject(owner.get(), &retainedKey), value.get());
  EXPECT_EQ(objc_getAssociatedObject(owner.get(), &assignedKey), unowned.get());
  EXPECT_EQ(retainCountOf(value.get()), 2u);
  EXPECT_EQ(retainCountOf(unowned.get()), 1u);

  owner = nullptr;
  EXPECT_EQ(retainCountOf(value.get()), 1u);
  EXPECT_EQ(retainCountOf(unowned.get()), 1u);
}

TEST(ObjcRuntime, ReplacedAssociatedObjectIsReleased) {
  static const char key = 0;
  Strong owner = makeObject("NSObject");
  Strong first = makeObject("NSObject");
  Strong second = makeObject("NSObject");
  objc_setAssociatedObject(owner.get(), &key, first.get(), OBJC_ASSOCIATION_RETAIN);
  objc_setAssociatedObject(owner.get(), &key, second.get(), OBJC_ASSOCIATION_RETAIN);
  EXPECT_EQ(retainCountOf(first.get()), 1u);
  EXPECT_EQ(retainCountOf(second.get()), 2u);

  objc_setAssociatedObject(owner.get(), &key, nullptr, OBJC_ASSOCIATION_RETAIN);
  EXPECT_EQ(retainCountOf(second.get()), 1u);
  EXPECT_EQ(objc_getAssociatedObject(owner.get(), &key), nullptr);
}

TEST(ObjcRuntime, AutoreleasedObjectIsReleasedWhenItsPoolEnds) {
  Weak outer;
  Weak inner;
  {
    AutoreleasePool pool;
    outer = Weak(objc_autorelease(makeObject("NSObject").release()));
    {
      AutoreleasePool nested;
      inner = Weak(objc_autorelease(makeObject("NSObject").release()));
    }
    EXPECT_FALSE(inner.lock());
    EXPECT_TRUE(outer.lock());
  }
  EXPECT_FALSE(outer.lock());
}

}  // namespace
}  // namespace tessel::objc
