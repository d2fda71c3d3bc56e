#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/view.h"
#include "phone/binding/bridge.h"
#include "phone/binding/phone_host.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/autorelease_pool.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using objc::makeObject;
using objc::makeView;
using objc::retainCountOf;

TEST(PhoneBinding, FramesAndTagsRoundTripThroughTheWrapper) {
  objc::Strong runtimeView = makeObject("UIView");
  auto view = referenceTo<host::View>(runtimeView.get());

  view->setFrame({12.5, -4, 300, 0.25});
  EXPECT_EQ(objc::send<objc::Rect>(runtimeView.get(), "frame"_sel), (objc::Rect{{12.5, -4}, {300, 0.25}}));
  objc::send(runtimeView.get(), "setFrame:"_sel, objc::Rect{{1, 2}, {3, 4}});
  EXPECT_EQ(view->frame(), (host::Rect{1, 2, 3, 4}));
  EXPECT_EQ(view->bounds(), (host::Rect{0, 0, 3, 4}));

  view->setTag(-1234567890123);
  EXPECT_EQ(objc::send<long>(runtimeView.get(), "tag"_sel), -1234567890123);
  objc::send(runtimeView.get(), "setTag:"_sel, 42l);
  EXPECT_EQ(view->tag(), 42);
}

TEST(PhoneBinding, SubviewsAndSuperviewNameTheRuntimeViews) {
  objc::AutoreleasePool pool;
  objc::Strong parent = makeObject("UIView");
  objc::Strong first = makeObject("SBIconView");
  objc::Strong second = makeObject("UIView");
  auto parentView = referenceTo<host::View>(parent.get());

  parentView->addSubview(referenceTo<host::View>(first.get()));
  parentView->addSubview(referenceTo<host::View>(second.get()));
  EXPECT_EQ(objc::gnu::subviewsOf(parent.get()), (std::vector<id>{first.get(), second.get()}));

  const auto subviews = parentView->subviews();
  ASSERT_EQ(subviews.size(), 2u);
  EXPECT_TRUE(subviews[0] == referenceTo(first.get()));
  EXPECT_TRUE(subviews[1] == referenceTo(second.get()));
  EXPECT_TRUE(subviews[1]->superview() == parentView);

  subviews[0]->removeFromSuperview();
  EXPECT_EQ(objc::gnu::subviewsOf(parent.get()), std::vector<id>{second.get()});
  EXPECT_FALSE(referenceTo<host::View>(first.get())->superview());
}

TEST(PhoneBinding, ConvertRectGoesThroughTheViewHierarchy) {
  objc::Strong window = makeView("UIView", {{100, 100}, {320, 568}});
  objc::Strong page = makeView("UIView", {{10, 20}, {300, 500}});
  objc::Strong icon = makeView("SBIconView", {{5, 7}, {60, 74}});
  objc::Strong dock = makeView("UIView", {{0, 480}, {320, 88}});
  objc::send(window.get(), "addSubview:"_sel, page.get());
  objc::send(page.get(), "addSubview:"_sel, icon.get());
  objc::send(window.get(), "addSubview:"_sel, dock.get());

  auto iconView = referenceTo<host::View>(icon.get());
  auto pageView = referenceTo<host::View>(page.get());
  auto dockView = referenceTo<host::View>(dock.get());
  const host::Rect rect{1, 2, 60, 74};

  EXPECT_EQ(iconView->convertRectToView(rect, nullptr), (host::Rect{16, 29, 60, 74}));
  EXPECT_EQ(pageView->convertRectFromView(rect, iconView), (host::Rect{6, 9, 60, 74}));
  EXPECT_EQ(iconView->convertRectToView(rect, dockView), (host::Rect{16, -451, 60, 74}));
  EXPECT_EQ(dockView->convertRectFromView(iconView->frame(), iconView->superview()), (host::Rect{15, -453, 60, 74}));
}

TEST(PhoneBinding, MadeViewIsOwnedByItsReferenceAlone) {
  PhoneHost host;
  objc::Weak made;
  {
    auto view = host.makeView({1, 2, 3, 4});
    ASSERT_TRUE(view);
    EXPECT_EQ(view->frame(), (host::Rect{1, 2, 3, 4}));
    EXPECT_EQ(retainCountOf(objectOf(view)), 1u);
    made = objc::Weak(objectOf(view));
  }
  EXPECT_FALSE(made.lock());
}

TEST(PhoneBinding, AnimationBlocksRunTheLibrarysWorkAndItsCompletion) {
  PhoneHost host;
  objc::Strong runtimeView = makeObject("UIView");
  auto view = referenceTo<host::View>(runtimeView.get());
  std::vector<std::string> steps;

  host.animator()->animateWithDuration(
      0.3,
      [&] {
        view->setFrame({0, 0, 10, 10});
        steps.push_back("animations");
      },
      [&](bool finished) { steps.push_back(finished ? "finished" : "cut short"); });
  EXPECT_EQ(steps, (std::vector<std::string>{"animations", "finished"}));
  EXPECT_EQ(objc::send<objc::Rect>(runtimeView.get(), "frame"_sel), (objc::Rect{{0, 0}, {10, 10}}));
}

}  // namespace
}  // namespace tessel::phone
