// The simulated view tree: geometry between views, subview order, ownership
// and which view a touch reaches.

#include <gtest/gtest.h>

#include "sim/sim_button.h"
#include "sim/sim_label.h"
#include "sim_test_host.h"

namespace tessel::sim::testing {
namespace {

using host::Rect;
using host::Ref;
using host::View;

class ViewTree : public ::testing::Test {
 protected:
  SimHost host{WorldConfig{}, ""};
  Ref<View> window{host.window()};
  Ref<View> add(const Ref<View>& parent, const Rect& frame) {
    auto view = host.makeView(frame);
    parent->addSubview(view);
    return view;
  }
  static std::vector<View*> children(const Ref<View>& view) {
    std::vector<View*> out;
    for (const auto& child : view->subviews()) out.push_back(child.get());
    return out;
  }
};

TEST_F(ViewTree, RectanglesConvertBetweenAnyTwoViewsOfTheWindowAndToTheWindowItself) {
  auto outer = add(window, {10, 20, 200, 200});
  auto inner = add(outer, {5, 5, 50, 50});
  auto elsewhere = add(window, {100, 200, 80, 80});

  EXPECT_EQ(inner->convertRectToView({1, 2, 3, 4}, elsewhere), (Rect{-84, -173, 3, 4}));
  EXPECT_EQ(elsewhere->convertRectFromView({1, 2, 3, 4}, inner), (Rect{-84, -173, 3, 4}));
  EXPECT_EQ(elsewhere->convertRectToView({-84, -173, 3, 4}, inner), (Rect{1, 2, 3, 4}));
  // Nothing stands for the window's coordinates.
  EXPECT_EQ(inner->convertRectToView({1, 2, 3, 4}, nullptr), (Rect{16, 27, 3, 4}));
  EXPECT_EQ(inner->convertRectFromView({16, 27, 3, 4}, nullptr), (Rect{1, 2, 3, 4}));
  EXPECT_EQ(window->convertRectFromView({1, 2, 3, 4}, inner), (Rect{16, 27, 3, 4}));
}

TEST_F(ViewTree, InsertingBelowASiblingGoesUnderItButBelowAStrangerGoesOnTop) {
  auto a = add(window, {});
  auto b = add(window, {});
  auto x = host.makeView({});
  window->insertSubviewBelowSubview(x, b);
  EXPECT_EQ(children(window), (std::vector<View*>{a.get(), x.get(), b.get()}));

  auto grandchild = add(a, {});
  auto y = host.makeView({});
  window->insertSubviewBelowSubview(y, grandchild);
  EXPECT_EQ(children(window), (std::vector<View*>{a.get(), x.get(), b.get(), y.get()}));

  // A subview moved below another keeps a single place.
  window->insertSubviewBelowSubview(b, a);
  EXPECT_EQ(children(window), (std::vector<View*>{b.get(), a.get(), x.get(), y.get()}));
  window->insertSubviewAtIndex(y, 0);
  EXPECT_EQ(children(window), (std::vector<View*>{y.get(), b.get(), a.get(), x.get()}));
  window->insertSubviewAtIndex(a, 99);
  EXPECT_EQ(children(window), (std::vector<View*>{y.get(), b.get(), x.get(), a.get()}));
}

TEST_F(ViewTree, AViewHasOneSuperviewWhichAloneKeepsItAlive) {
  auto first = add(window, {});
  auto second = add(window, {});
  host::Weak<View> moved = add(first, {});
  second->addSubview(moved.lock());
  EXPECT_TRUE(first->subviews().empty());
  EXPECT_EQ(moved->superview(), second);

  moved->removeFromSuperview();
  EXPECT_FALSE(moved) << "the library's weak reference reads as nothing once the host lets go";
  EXPECT_TRUE(second->subviews().empty());

  // A view cannot become its own ancestor's subview.
  first->addSubview(window);
  EXPECT_EQ(window->superview(), nullptr);
}

TEST_F(ViewTree, IdsAreStableAndNeverReused) {
  EXPECT_EQ(host.window()->id(), "v1");
  std::string firstId;
  {
    auto view = host.makeView({});
    firstId = viewOf(view)->id();
  }
  auto next = host.makeView({});
  EXPECT_NE(viewOf(next)->id(), firstId);
  EXPECT_EQ(host.registry().find(firstId), nullptr);
  EXPECT_EQ(host.registry().find(viewOf(next)->id()).get(), viewOf(next).get());
  EXPECT_EQ(idOf(host.sharedApplication()).front(), 'o');
}

TEST_F(ViewTree, AFrontmostFullWindowViewTakesTouchesEvenOutsideItsMask) {
  auto behind = add(window, {0, 0, 390, 844});
  auto arrow = add(window, {0, 0, 390, 844});
  auto mask = host.makeShapeLayer();
  auto path = host.makeBezierPath();
  path->moveToPoint({10, 10});
  path->addLineToPoint({20, 0});
  path->addLineToPoint({30, 10});
  path->closePath();
  mask->setPath(path->CGPath());
  arrow->layer()->setMask(mask);

  EXPECT_EQ(host.window()->hitTest({300, 700}), viewOf(arrow));
  EXPECT_EQ(viewOf(arrow)->maskLayer()->path().elements.size(), 4u);

  arrow->setAlpha(0.01);
  EXPECT_EQ(host.window()->hitTest({300, 700}), viewOf(behind)) << "a view at alpha 0.01 or less takes no touch";
  arrow->setAlpha(0.5);
  arrow->setUserInteractionEnabled(false);
  EXPECT_EQ(host.window()->hitTest({300, 700}), viewOf(behind));
  viewOf(behind)->setHidden(true);
  EXPECT_EQ(host.window()->hitTest({300, 700}), host.window());
}

TEST_F(ViewTree, TouchesPassThroughLabelsAndMissSubviewsOutsideTheirSuperview) {
  auto button = host.buttonWithType(1);
  button->setFrame({50, 50, 100, 40});
  window->addSubview(button);
  auto label = host.makeLabel({0, 0, 100, 40});
  button->addSubview(label);
  auto overhang = add(button, {90, 30, 50, 50});

  EXPECT_EQ(host.window()->hitTest({60, 60}), viewOf(button)) << "labels take no touches";
  EXPECT_EQ(host.window()->hitTest({145, 85}), viewOf(overhang));
  EXPECT_EQ(host.window()->hitTest({170, 100}), host.window()) << "outside the button, so not its subview either";
}

}  // namespace
}  // namespace tessel::sim::testing
