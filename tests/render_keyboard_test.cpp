#include <gtest/gtest.h>

#include <cstdint>

#include "picture_pixels.h"
#include "render/render.h"
#include "sim/world.h"

namespace tessel::render {
namespace {

TEST(RenderKeyboard, AppearsInItsFrameWhileUpAndGoesWhenItHides) {
  sim::WorldConfig config;
  config.screen = {200, 300, 1};
  config.settingsFile = "none";
  sim::World world(config);
  // A point of the keyboard's tray, between its edge and the first keys.
  const int x = 1, y = 202;
  Rgb before = at(renderWorld(world, 1), x, y);
  world.keyboard(true, {0, 200, 200, 100});
  Picture up = renderWorld(world, 1);
  Rgb tray = at(up, x, y);
  EXPECT_NEAR(tray.r, 209, 2);
  EXPECT_NEAR(tray.g, 212, 2);
  EXPECT_NEAR(tray.b, 219, 2);
  EXPECT_FALSE(at(up, x, 190) == tray) << "the keyboard stays inside its frame";
  world.keyboard(false, {0, 300, 200, 100});
  EXPECT_EQ(at(renderWorld(world, 1), x, y), before);
}

}  // namespace
}  // namespace tessel::render
