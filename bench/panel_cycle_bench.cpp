#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "sim/world.h"

namespace tessel {
namespace {

// A full page, a dock and three notifications for the held application.
sim::WorldConfig fullPhone() {
  sim::WorldConfig c;
  c.screen = {390, 844, 3};
  std::vector<std::string> page;
  for (int i = 0; i < 24; ++i) page.push_back("com.example.app" + std::to_string(i));
  c.pages = {page};
  c.dock = {"com.example.phone", "com.example.browser", "com.example.chat", "com.example.music"};
  c.notifications = {{page[5],
                      {{"Ana", "Lunch at one?", c.clockEpoch - 45},
                       {"Build server", "Nightly build passed.", c.clockEpoch - 1500},
                       {"Jonas", "Slides are in the shared folder.", c.clockEpoch - 10800}}}};
  return c;
}

// One opening and closing of the panel on a freshly unlocked simulated
// phone, every queued block and animation run to its end: the library and
// the simulated host together, no pictures. (Each layout adds a recognizer,
// so a phone reused for many cycles would measure its own growth.)
void BM_PanelCycle(benchmark::State& state) {
  std::unique_ptr<sim::World> world;
  for (auto _ : state) {
    state.PauseTiming();
    world = std::make_unique<sim::World>(fullPhone());  // the last one goes here too, untimed
    world->unlock();
    world->advanceTo(world->time() + 1);
    state.ResumeTiming();
    world->gesture("com.example.app5", "swipeUp", 0);
    world->advanceTo(world->time() + 1);
    world->home(/*handled*/ true);
    world->advanceTo(world->time() + 1);
  }
}
BENCHMARK(BM_PanelCycle)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel
