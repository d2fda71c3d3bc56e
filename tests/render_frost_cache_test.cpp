// Frosted glass drawn from kept copies must always show what lies behind
// it now: pictures drawn after something behind changed, or the glass
// moved, are compared with what they must show.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#include "host/host.h"
#include "picture_pixels.h"
#include "render/frost_cache.h"
#include "render/render.h"
#include "sim/sim_host.h"
#include "sim/sim_view.h"
#include "sim/world.h"

namespace tessel::render {
namespace {

// Brightest minus darkest grey level inside a box: high over sharp stripes,
// low where they are blurred.
int contrast(const Picture& p, int x0, int y0, int x1, int y1) {
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

const host::Color kRed{1, 0, 0, 1};
const host::Color kBlue{0, 0, 1, 1};
const host::Color kWhite{1, 1, 1, 1};
const host::Color kBlack{0, 0, 0, 1};

// A 200 × 300 point phone with a black stage over the home screen.
class Stage {
 public:
  Stage() : world_(config()) { stage_ = add(world_.host().window(), {0, 0, 200, 300}, kBlack); }

  static sim::WorldConfig config() {
    sim::WorldConfig c;
    c.screen = {200, 300, 1};
    c.settingsFile = "none";
    return c;
  }

  sim::SimHost& host() { return world_.host(); }
  const host::Ref<host::View>& stage() const { return stage_; }

  template <class Parent>
  host::Ref<host::View> add(const Parent& parent, const host::Rect& frame, const host::Color& colour) {
    auto v = host().makeView(frame);
    v->setBackgroundColor(colour);
    host().runTurn([&] { parent->addSubview(v); });
    return v;
  }
  host::Ref<host::View> addGlass(const host::Rect& frame, std::int64_t style) {
    host::Ref<host::View> glass(host().makeBackdropView(frame, false, host().backdropSettingsForPrivateStyle(style)));
    host().runTurn([&] { stage_->addSubview(glass); });
    return glass;
  }
  void change(const std::function<void()>& what) { host().runTurn(what); }
  Picture picture(double scale = 1) const { return renderWorld(world_, scale); }

 private:
  sim::World world_;
  host::Ref<host::View> stage_;
};

TEST(RenderFrostCache, GlassShowsTheNewColourBehindItAfterAChange) {
  for (double scale : {1.0, 3.0}) {
    Stage s;
    auto behind = s.add(s.stage(), {0, 30, 200, 240}, kRed);
    s.addGlass({40, 80, 120, 100}, 1);
    int cx = int(100 * scale), cy = int(130 * scale);
    Rgb red = at(s.picture(scale), cx, cy);
    EXPECT_GT(red.r, red.b + 30) << scale << "x";
    s.change([&] { behind->setBackgroundColor(kBlue); });
    Rgb blue = at(s.picture(scale), cx, cy);
    EXPECT_GT(blue.b, blue.r + 30) << scale << "x";
  }
}

TEST(RenderFrostCache, AlternatingScenesEachGetTheirOwnPictureBackExactly) {
  Stage s;
  auto behind = s.add(s.stage(), {0, 30, 200, 240}, kRed);
  s.addGlass({40, 80, 120, 100}, 2);
  Picture red = s.picture();
  s.change([&] { behind->setBackgroundColor(kBlue); });
  Picture blue = s.picture();
  s.change([&] { behind->setBackgroundColor(kRed); });
  Picture redAgain = s.picture();
  s.change([&] { behind->setBackgroundColor(kBlue); });
  Picture blueAgain = s.picture();
  Rgb redGlass = at(red, 100, 130), blueGlass = at(blue, 100, 130);
  EXPECT_GT(redGlass.r, redGlass.b + 30);
  EXPECT_GT(blueGlass.b, blueGlass.r + 30);
  EXPECT_EQ(red.rgba, redAgain.rgba);
  EXPECT_EQ(blue.rgba, blueAgain.rgba);
}

TEST(RenderFrostCache, ASmallSpotAppearingBehindTheGlassShowsThrough) {
  Stage s;
  s.addGlass({40, 80, 120, 100}, 1);
  int before = at(s.picture(), 100, 130).g;
  auto spot = s.host().makeView({96, 126, 8, 8});
  spot->setBackgroundColor(kWhite);
  s.change([&] { s.stage()->insertSubviewAtIndex(spot, 0); });
  // Blurred into a faint glow, not drawn sharp over the glass.
  int after = at(s.picture(), 100, 130).g;
  EXPECT_GT(after, before + 2);
  EXPECT_LT(after, 200);
}

TEST(RenderFrostCache, MovedGlassFrostsItsNewPlaceAndUncoversTheOld) {
  Stage s;
  for (int i = 0; i < 20; ++i) s.add(s.stage(), {double(i * 10), 30, 5, 240}, kWhite);
  auto glass = s.addGlass({10, 80, 80, 100}, 2);
  Picture left = s.picture();
  EXPECT_LT(contrast(left, 20, 90, 80, 170), 40);
  EXPECT_GT(contrast(left, 120, 90, 180, 170), 200);
  s.change([&] { glass->setFrame({110, 80, 80, 100}); });
  Picture right = s.picture();
  EXPECT_GT(contrast(right, 20, 90, 80, 170), 200);
  EXPECT_LT(contrast(right, 120, 90, 180, 170), 40);
}

FrostKey keyWith(std::uint32_t pixel, int shownX = 0) {
  FrostKey key;
  key.reduced = {2, 2, 4, std::vector<std::uint32_t>(4, 0xFF102030u)};
  key.reduced.pixels[3] = pixel;
  key.plan = planBlur(12);
  key.tint = {0.1, 0.1, 0.1, 0.5};
  key.shownX = shownX;
  key.shownWidth = key.shownHeight = 8;
  return key;
}

Surface copySized(int width) { return Surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, 8)); }

TEST(RenderFrostCache, OnePixelOfDifferenceIsAMissAndReplacesTheOldCopyOfThatGlass) {
  FrostCache cache(4);
  cairo_surface_t* first = cache.store(keyWith(0xFF000000u), copySized(8));
  EXPECT_EQ(cache.find(keyWith(0xFF000000u)), first);
  EXPECT_EQ(cache.find(keyWith(0xFF000001u)), nullptr);
  FrostKey otherTint = keyWith(0xFF000000u);
  otherTint.tint.alpha = 0.6;
  EXPECT_EQ(cache.find(otherTint), nullptr);
  cairo_surface_t* second = cache.store(keyWith(0xFF000001u), copySized(9));
  EXPECT_EQ(cache.size(), 1u);
  EXPECT_EQ(cache.find(keyWith(0xFF000001u)), second);
  EXPECT_EQ(cache.find(keyWith(0xFF000000u)), nullptr);
}

TEST(RenderFrostCache, WhenFullTheLeastRecentlyUsedCopyGoes) {
  FrostCache cache(2);
  cache.store(keyWith(1, 0), copySized(8));
  cache.store(keyWith(1, 10), copySized(8));
  ASSERT_NE(cache.find(keyWith(1, 0)), nullptr);
  cache.store(keyWith(1, 20), copySized(8));
  EXPECT_EQ(cache.size(), 2u);
  EXPECT_NE(cache.find(keyWith(1, 0)), nullptr);
  EXPECT_EQ(cache.find(keyWith(1, 10)), nullptr);
  EXPECT_NE(cache.find(keyWith(1, 20)), nullptr);
}

}  // namespace
}  // namespace tessel::render
