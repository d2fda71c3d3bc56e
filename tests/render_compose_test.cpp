#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "host/host.h"
#include "picture_pixels.h"
#include "render/render.h"
#include "sim/ease.h"
#include "sim/sim_host.h"
#include "sim/sim_image.h"
#include "sim/sim_view.h"
#include "sim/world.h"

namespace tessel::render {
namespace {

void expectColour(const Picture& picture, int x, int y, Rgb want, int tolerance = 2) {
  Rgb got = at(picture, x, y);
  EXPECT_NEAR(got.r, want.r, tolerance) << "red at " << x << "," << y;
  EXPECT_NEAR(got.g, want.g, tolerance) << "green at " << x << "," << y;
  EXPECT_NEAR(got.b, want.b, tolerance) << "blue at " << x << "," << y;
}

// An empty phone of 200 × 300 points with a black stage over the home
// screen; the test's views go on the stage, below the status bar.
class Stage {
 public:
  Stage() : world_(config()) {
    stage_ = view({0, 0, 200, 300}, host::Color::blackColor());
    add(world_.host().window(), stage_);
  }

  static sim::WorldConfig config() {
    sim::WorldConfig c;
    c.screen = {200, 300, 1};
    c.settingsFile = "none";
    return c;
  }

  sim::World& world() { return world_; }
  host::Host& host() { return world_.host(); }
  const host::Ref<host::View>& stage() const { return stage_; }

  host::Ref<host::View> view(const host::Rect& frame, const host::Color& colour) {
    auto v = host().makeView(frame);
    v->setBackgroundColor(colour);
    return v;
  }
  template <class Parent>
  void add(const Parent& parent, const host::Ref<host::View>& child) {
    world_.host().runTurn([&] { parent->addSubview(child); });
  }
  Picture picture(double scale = 1) const { return renderWorld(world_, scale); }

 private:
  sim::World world_;
  host::Ref<host::View> stage_;
};

const host::Color kRed{1, 0, 0, 1};
const host::Color kBlue{0, 0, 1, 1};
const host::Color kWhite{1, 1, 1, 1};

TEST(RenderCompose, AlphaFadesAWholeSubtreeAsOne) {
  Stage s;
  auto parent = s.view({20, 40, 100, 60}, host::Color::clearColor());
  parent->setAlpha(0.5);
  s.add(s.stage(), parent);
  s.add(parent, s.view({0, 0, 60, 60}, kRed));
  s.add(parent, s.view({40, 0, 60, 60}, kBlue));
  Picture p = s.picture();
  // Where the children overlap only the upper one shows, at half strength:
  // the red below does not shine through the blue.
  expectColour(p, 80, 70, {0, 0, 128});
  expectColour(p, 30, 70, {128, 0, 0});
  expectColour(p, 125, 70, {0, 0, 0});
}

TEST(RenderCompose, AlphaMultipliesDownTheTree) {
  Stage s;
  auto outer = s.view({20, 40, 100, 100}, host::Color::clearColor());
  outer->setAlpha(0.5);
  auto inner = s.view({0, 0, 100, 100}, kWhite);
  inner->setAlpha(0.5);
  s.add(s.stage(), outer);
  s.add(outer, inner);
  expectColour(s.picture(), 50, 80, {64, 64, 64});
}

TEST(RenderCompose, HiddenAndTransparentViewsDrawNothing) {
  Stage s;
  auto transparent = s.view({20, 40, 50, 50}, kWhite);
  transparent->setAlpha(0);
  s.add(s.stage(), transparent);
  s.add(transparent, s.view({0, 0, 50, 50}, kRed));
  auto hidden = s.view({100, 40, 50, 50}, kWhite);
  s.add(s.stage(), hidden);
  sim::simView(hidden)->setHidden(true);
  Picture p = s.picture();
  expectColour(p, 40, 60, {0, 0, 0});
  expectColour(p, 120, 60, {0, 0, 0});
}

TEST(RenderCompose, ClipsToBoundsCutsChildrenOff) {
  Stage s;
  auto clipping = s.view({20, 40, 50, 50}, host::Color::clearColor());
  clipping->setClipsToBounds(true);
  auto open = s.view({120, 40, 50, 50}, host::Color::clearColor());
  s.add(s.stage(), clipping);
  s.add(s.stage(), open);
  s.add(clipping, s.view({25, 25, 50, 50}, kRed));
  s.add(open, s.view({25, 25, 50, 50}, kRed));
  Picture p = s.picture();
  expectColour(p, 60, 80, {255, 0, 0});
  expectColour(p, 80, 100, {0, 0, 0});  // outside the clipping parent
  expectColour(p, 180, 100, {255, 0, 0});
}

host::Ref<host::ShapeLayer> triangleMask(host::Host& host, const host::Rect& frame, host::Point a, host::Point b,
                                         host::Point c) {
  auto path = host.makeBezierPath();
  path->moveToPoint(a);
  path->addLineToPoint(b);
  path->addLineToPoint(c);
  path->closePath();
  auto mask = host.makeShapeLayer();
  mask->setFrame(frame);
  mask->setPath(path->CGPath());
  return mask;
}

TEST(RenderCompose, ShapeMaskLetsThroughOnlyItsTriangleWithSoftEdges) {
  Stage s;
  auto arrow = s.view({0, 0, 200, 300}, kWhite);
  s.add(s.stage(), arrow);
  // Points up, tip at (100, 60), base from 60 to 140 at y = 140.
  arrow->layer()->setMask(triangleMask(s.host(), {0, 0, 200, 300}, {60, 140}, {100, 60}, {140, 140}));
  Picture p = s.picture();
  expectColour(p, 100, 120, {255, 255, 255});
  expectColour(p, 100, 150, {0, 0, 0});
  expectColour(p, 65, 80, {0, 0, 0});
  // Along a slanted side, pixels are partly covered.
  int between = 0;
  for (int x = 60; x < 100; ++x) {
    int r = at(p, x, 100).r;
    if (r > 10 && r < 245) ++between;
  }
  EXPECT_GE(between, 1);
}

TEST(RenderCompose, MaskMovesWithItsViewAndHonoursTheLayerFrame) {
  Stage s;
  auto arrow = s.view({30, 50, 100, 100}, kRed);
  s.add(s.stage(), arrow);
  // The mask layer stands 10 points into the view; its path is in its own coordinates.
  arrow->layer()->setMask(triangleMask(s.host(), {10, 10, 50, 50}, {0, 0}, {40, 0}, {0, 40}));
  Picture p = s.picture();
  expectColour(p, 30 + 10 + 5, 50 + 10 + 5, {255, 0, 0});
  expectColour(p, 30 + 5, 50 + 5, {0, 0, 0});
  expectColour(p, 30 + 10 + 35, 50 + 10 + 35, {0, 0, 0});
}

TEST(RenderCompose, AnEmptyMaskHidesTheView) {
  Stage s;
  auto masked = s.view({20, 40, 100, 100}, kWhite);
  s.add(s.stage(), masked);
  masked->layer()->setMask(s.host().makeShapeLayer());
  expectColour(s.picture(), 70, 90, {0, 0, 0});
}

TEST(RenderCompose, TranslucentMaskedViewBlendsOnlyInsideTheMask) {
  Stage s;
  s.add(s.stage(), s.view({0, 30, 200, 200}, kBlue));
  auto arrow = s.view({0, 0, 200, 300}, host::Color::clearColor());
  arrow->setAlpha(0.7);
  s.add(s.stage(), arrow);
  s.add(arrow, s.view({0, 0, 200, 300}, kWhite));
  arrow->layer()->setMask(triangleMask(s.host(), {0, 0, 200, 300}, {60, 140}, {100, 60}, {140, 140}));
  Picture p = s.picture();
  expectColour(p, 100, 120, {179, 179, 255});
  expectColour(p, 100, 180, {0, 0, 255});
}

TEST(RenderCompose, ScaleMultipliesThePictureAndKeepsPlaces) {
  Stage s;
  s.add(s.stage(), s.view({20, 40, 30, 30}, kRed));
  Picture one = s.picture(1);
  Picture three = s.picture(3);
  EXPECT_EQ(three.width, 600);
  EXPECT_EQ(three.height, 900);
  expectColour(one, 21, 41, {255, 0, 0});
  expectColour(three, 61, 121, {255, 0, 0});
  expectColour(three, 59, 119, {0, 0, 0});
  expectColour(three, 149, 209, {255, 0, 0});
  expectColour(three, 151, 211, {0, 0, 0});
}

TEST(RenderCompose, ImageViewShowsItsPixelsStretchedOverItsFrame) {
  Stage s;
  // A 2 × 2 image stored as a PNG loads: red, green / blue, white.
  std::vector<std::uint8_t> bytes{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255};
  auto image = sim::imageFromBytes(2, 2, 8, 32, bytes);
  auto view = s.host().makeImageView(host::Ref<host::Image>(image));
  view->setFrame({20, 40, 80, 80});
  s.add(s.stage(), host::Ref<host::View>(view));
  Picture p = s.picture();
  expectColour(p, 30, 50, {255, 0, 0});
  expectColour(p, 90, 50, {0, 255, 0});
  expectColour(p, 30, 110, {0, 0, 255});
  expectColour(p, 90, 110, {255, 255, 255});
}

// Luminance spread inside a box: how sharp the picture is there.
double contrast(const Picture& p, int x0, int y0, int x1, int y1) {
  int low = 255, high = 0;
  for (int y = y0; y < y1; ++y)
    for (int x = x0; x < x1; ++x) {
      Rgb c = at(p, x, y);
      int l = (c.r + c.g + c.b) / 3;
      low = std::min(low, l);
      high = std::max(high, l);
    }
  return high - low;
}

TEST(RenderCompose, BackdropBlursWhatLiesBehindItAndNothingElse) {
  Stage s;
  for (int i = 0; i < 20; ++i) s.add(s.stage(), s.view({double(i * 10), 30, 5, 240}, kWhite));
  auto settings = s.host().backdropSettingsForPrivateStyle(1);
  auto glass = s.host().makeBackdropView({40, 80, 120, 100}, false, settings);
  s.add(s.stage(), host::Ref<host::View>(glass));
  Picture p = s.picture();
  EXPECT_LT(contrast(p, 50, 90, 150, 170), 40);
  EXPECT_GT(contrast(p, 50, 200, 150, 260), 200);
  EXPECT_GT(contrast(p, 0, 90, 35, 170), 200);
  // Blurred stripes average to a grey, darkened by the dark glass.
  int grey = at(p, 100, 130).g;
  EXPECT_GT(grey, 20);
  EXPECT_LT(grey, 128);
}

TEST(RenderCompose, BackdropSeesViewsDrawnBeforeItInsideTranslucentParents) {
  Stage s;
  auto parent = s.view({0, 30, 200, 240}, host::Color::clearColor());
  parent->setAlpha(0.99);
  s.add(s.stage(), parent);
  s.add(parent, s.view({0, 0, 200, 240}, kWhite));
  auto settings = s.host().backdropSettingsForPrivateStyle(2);
  s.add(parent, host::Ref<host::View>(s.host().makeBackdropView({40, 50, 120, 100}, false, settings)));
  // White behind, lightly darkened: clearly not the black stage.
  EXPECT_GT(at(s.picture(), 100, 130).g, 120);
}

TEST(RenderCompose, DarkGlassIsDarkerThanTheDimmingGlass) {
  Stage s;
  s.add(s.stage(), s.view({0, 30, 200, 240}, kWhite));
  auto dark = s.host().makeBackdropView({10, 60, 80, 100}, false, s.host().backdropSettingsForPrivateStyle(1));
  auto dim = s.host().makeBackdropView({110, 60, 80, 100}, false, s.host().backdropSettingsForPrivateStyle(2));
  s.add(s.stage(), host::Ref<host::View>(dark));
  s.add(s.stage(), host::Ref<host::View>(dim));
  Picture p = s.picture();
  EXPECT_LT(at(p, 50, 110).g + 40, at(p, 150, 110).g);
  EXPECT_LT(at(p, 150, 110).g, 250);
}

TEST(RenderCompose, LabelTextStaysInsideItsFrameWhenShrunkToFit) {
  Stage s;
  auto label = s.host().makeLabel({20, 100, 120, 40});
  label->setText("No new notifications");
  label->setTextColor(kWhite);
  label->setFont(host::Font::systemFontOfSize(36));
  label->setAdjustsFontSizeToFitWidth(true);
  s.add(s.stage(), host::Ref<host::View>(label));
  Picture p = s.picture();
  int inside = 0, outside = 0;
  for (int y = 95; y < 145; ++y)
    for (int x = 0; x < 200; ++x) {
      bool lit = at(p, x, y).r > 60;
      (x >= 20 && x < 140 ? inside : outside) += lit;
    }
  EXPECT_GT(inside, 50);
  EXPECT_EQ(outside, 0);
}

TEST(RenderCompose, LabelUsesItsColour) {
  Stage s;
  auto label = s.host().makeLabel({20, 100, 160, 40});
  label->setText("MMMM");
  label->setTextColor({0, 1, 0, 1});
  label->setFont(host::Font::systemFontOfSize(30));
  s.add(s.stage(), host::Ref<host::View>(label));
  Picture p = s.picture();
  int green = 0;
  for (int y = 100; y < 140; ++y)
    for (int x = 20; x < 180; ++x) {
      Rgb c = at(p, x, y);
      EXPECT_LE(c.r, 2);
      EXPECT_LE(c.b, 2);
      green += c.g > 200;
    }
  EXPECT_GT(green, 100);
}

// The default curve, solved independently of the host: x(s) is sampled
// densely and inverted by linear interpolation.
double referenceEase(double t) {
  auto bezier = [](double a, double b, double s) {
    double r = 1 - s;
    return 3 * r * r * s * a + 3 * r * s * s * b + s * s * s;
  };
  const int n = 20000;
  for (int i = 1; i <= n; ++i) {
    double s0 = double(i - 1) / n, s1 = double(i) / n;
    double x0 = bezier(0.42, 0.58, s0), x1 = bezier(0.42, 0.58, s1);
    if (x1 >= t) {
      double s = s0 + (s1 - s0) * (t - x0) / (x1 - x0);
      return bezier(0, 1, s);
    }
  }
  return 1;
}

TEST(RenderEasing, DefaultCurveMatchesTheCubicBezier) {
  for (double t : {0.05, 0.1, 0.25, 0.4, 0.5, 0.6, 0.75, 0.9, 0.97})
    EXPECT_NEAR(sim::easeInEaseOut(t), referenceEase(t), 1e-4) << t;
  EXPECT_EQ(sim::easeInEaseOut(0), 0);
  EXPECT_EQ(sim::easeInEaseOut(1), 1);
  EXPECT_EQ(sim::easeInEaseOut(-0.5), 0);
  EXPECT_EQ(sim::easeInEaseOut(1.5), 1);
  // Slow at both ends, symmetric about the middle.
  EXPECT_LT(sim::easeInEaseOut(0.1), 0.1);
  EXPECT_GT(sim::easeInEaseOut(0.9), 0.9);
  EXPECT_NEAR(sim::easeInEaseOut(0.3) + sim::easeInEaseOut(0.7), 1, 1e-9);
  double previous = 0;
  for (int i = 1; i <= 100; ++i) {
    double value = sim::easeInEaseOut(i / 100.0);
    EXPECT_GE(value, previous);
    previous = value;
  }
}

// The left edge of the first red run on a row.
int leftEdgeOfRed(const Picture& p, int y) {
  for (int x = 0; x < p.width; ++x)
    if (at(p, x, y).r > 127) return x;
  return -1;
}

TEST(RenderEasing, MovingViewIsDrawnAtItsEasedPlace) {
  Stage s;
  auto box = s.view({0, 100, 40, 40}, kRed);
  s.add(s.stage(), box);
  s.world().host().runTurn([&] {
    s.host().animator()->animateWithDuration(1.0, [&] { box->setFrame({100, 100, 40, 40}); });
  });
  double start = s.world().time();
  for (double fraction : {0.0, 0.2, 0.5, 0.8}) {
    s.world().advanceTo(start + fraction);
    int edge = leftEdgeOfRed(s.picture(), 120);
    EXPECT_NEAR(edge, 100 * referenceEase(fraction), 1.0) << fraction;
  }
  s.world().advanceTo(start + 2);
  EXPECT_EQ(leftEdgeOfRed(s.picture(), 120), 100);
}

TEST(RenderEasing, FadingViewIsDrawnAtItsEasedAlpha) {
  Stage s;
  auto box = s.view({20, 100, 40, 40}, kWhite);
  box->setAlpha(0);
  s.add(s.stage(), box);
  s.world().host().runTurn([&] { s.host().animator()->animateWithDuration(0.5, [&] { box->setAlpha(1); }); });
  s.world().advanceTo(s.world().time() + 0.125);
  EXPECT_NEAR(at(s.picture(), 40, 120).g, 255 * referenceEase(0.25), 2);
}

TEST(RenderCompose, DrawingChangesNothingTheLibraryCanSee) {
  sim::WorldConfig config;
  config.screen = {390, 844, 1};
  config.settingsFile = "none";
  config.pages = {{"com.example.mail", "com.example.maps"}};
  config.notifications = {{"com.example.mail", {{"Ana", "Lunch?", config.clockEpoch - 45}}}};
  sim::World world(config);
  world.unlock();
  world.gesture("com.example.mail", "swipeUp", 0);
  world.advanceTo(world.time() + 0.3);
  auto before = world.dump();
  auto traced = world.trace().size();
  renderWorld(world, 2);
  EXPECT_EQ(world.dump(), before);
  EXPECT_EQ(world.trace().size(), traced);
}

}  // namespace
}  // namespace tessel::render
