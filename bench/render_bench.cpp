#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "full_phone.h"
#include "render/blur.h"
#include "render/render.h"
#include "sim/world.h"

namespace tessel::render {
namespace {

// The dark panel open on the full phone: two blurs, the arrow and a table.
sim::WorldConfig openPanelPhone() { return bench::fullPhone(); }

void BM_OpenPanelFrame(benchmark::State& state) {
  sim::World world(openPanelPhone());
  world.unlock();
  world.advanceTo(1);
  world.gesture("com.example.app5", "swipeUp", 0);
  world.advanceTo(2.5);
  double scale = double(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(renderWorld(world, scale));
  state.SetLabel("open dark panel, 390 x 844 at " + std::to_string(state.range(0)) + "x");
}
BENCHMARK(BM_OpenPanelFrame)->Arg(3)->Arg(2)->Unit(benchmark::kMillisecond);

// Frames of the panel opening at 60 frames a second at 3x: what lies behind
// the glass changes from one frame to the next, so kept frosted copies are
// seldom reused. Every half second a new phone starts the opening again.
void BM_OpeningPanelFrames(benchmark::State& state) {
  std::unique_ptr<sim::World> world;
  int frame = 0;
  for (auto _ : state) {
    if (frame % 30 == 0) {
      state.PauseTiming();
      world = std::make_unique<sim::World>(openPanelPhone());
      world->unlock();
      world->advanceTo(1);
      world->gesture("com.example.app5", "swipeUp", 0);
      state.ResumeTiming();
    }
    world->advanceTo(1 + (frame % 30 + 1) / 60.0);
    ++frame;
    benchmark::DoNotOptimize(renderWorld(*world, 3));
  }
  state.SetLabel("panel opening, 390 x 844 at 3x");
}
BENCHMARK(BM_OpeningPanelFrames)->Unit(benchmark::kMillisecond);

void BM_HomeScreenFrame(benchmark::State& state) {
  sim::World world(openPanelPhone());
  world.unlock();
  world.advanceTo(1);
  for (auto _ : state) benchmark::DoNotOptimize(renderWorld(world, 3));
  state.SetLabel("home screen, 390 x 844 at 3x");
}
BENCHMARK(BM_HomeScreenFrame)->Unit(benchmark::kMillisecond);

// The blur alone over the whole 3× screen, at the strengths of the
// dimming glass (6 points) and the panel's glass (12 points).
void BM_BlurFullScreen(benchmark::State& state) {
  const int width = 1170, height = 2532;
  std::vector<std::uint32_t> pixels(std::size_t(width) * height);
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = 0xFF000000u | std::uint32_t(i * 2654435761u >> 8);
  PixelRect rect{pixels.data(), width, height, width};
  BlurPlan plan = planBlur(double(state.range(0)));
  for (auto _ : state) {
    blur(rect, rect, plan);
    benchmark::ClobberMemory();
  }
  state.SetLabel("sigma " + std::to_string(state.range(0)) + " px, factor " + std::to_string(plan.factor));
}
BENCHMARK(BM_BlurFullScreen)->Arg(18)->Arg(36)->Unit(benchmark::kMillisecond);

// Reducing and blurring only (what a backdrop does before cairo enlarges
// the result while compositing).
void BM_ReduceAndBlurFullScreen(benchmark::State& state) {
  const int width = 1170, height = 2532;
  std::vector<std::uint32_t> pixels(std::size_t(width) * height, 0xFF336699u);
  PixelRect rect{pixels.data(), width, height, width};
  BlurPlan plan = planBlur(double(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(reduceAndBlur(rect, plan));
}
BENCHMARK(BM_ReduceAndBlurFullScreen)->Arg(18)->Arg(36)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel::render

BENCHMARK_MAIN();
