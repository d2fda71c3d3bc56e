#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "full_phone.h"
#include "sim/world.h"

namespace tessel {
namespace {

// One opening and closing of the panel on a freshly unlocked simulated
// phone, every queued block and animation run to its end: the library and
// the simulated host together, no pictures. (Each layout adds a recognizer,
// so a phone reused for many cycles would measure its own growth.)
void BM_PanelCycle(benchmark::State& state) {
  std::unique_ptr<sim::World> world;
  for (auto _ : state) {
    state.PauseTiming();
    world = std::make_unique<sim::World>(bench::fullPhone());  // the last one goes here too, untimed
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
