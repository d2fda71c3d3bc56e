#include "cli/soak.h"

#include <chrono>
#include <ostream>

#include <fmt/format.h>

#include "cli/random_phone.h"
#include "cli/runner.h"
#include "cli/stop_signal.h"

namespace tessel::cli {

using nlohmann::json;

std::string closingProblem(const json& dump) {
  const auto& views = dump.at("views");
  const auto& window = views.at(dump.at("window").get<std::string>());
  for (const auto& id : window.at("subviews")) {
    const auto& view = views.at(id.get<std::string>());
    int tag = view.at("tag").get<int>();
    if (tag >= 1333 && tag <= 1337) return "a view tagged " + std::to_string(tag) + " is left in the window";
    if (view.at("class") == "TesselGenericNotificationView") return "a panel is left in the window";
  }
  for (const auto& [bundleIdentifier, id] : dump.at("home").at("iconViews").items()) {
    const auto& view = views.at(id.get<std::string>());
    if (view.at("alpha").get<double>() != 1.0) return "the icon of " + bundleIdentifier + " stays dimmed";
  }
  return {};
}

namespace {

// One phone: false (with the failure filled in) at the first broken closing.
bool soakOne(unsigned seed, const SoakOptions& options, SoakResult& result, std::ostream& err) {
  RandomPhone random(seed);
  sim::World world(random.config());
  auto trace = [&](const std::string& what) {
    if (options.trace) err << fmt::format("soak: t={:.3f} {}\n", world.time(), what);
  };
  world.unlock();
  for (int i = 0, events = 20 + int(seed % 181); i < events; ++i) {
    world.advanceTo(world.time() + random.pause());
    ++result.events;
    if (!random.event(world, trace)) continue;
    const bool liftPending = world.time() < random.settledAfter();
    world.advanceTo(world.time() + 1.0);
    if (liftPending) continue;
    ++result.closingsChecked;
    if (auto problem = closingProblem(world.dumpWithoutAnimations()); !problem.empty()) {
      result.failure = fmt::format("seed {}, event {} (t={:.3f}): {}", seed, i, world.time(), problem);
      result.failedSeed = seed;
      return false;
    }
  }
  return true;
}

}  // namespace

SoakResult runSoak(const SoakOptions& options, std::ostream& err) {
  SoakResult result;
  auto started = std::chrono::steady_clock::now();
  auto nextLine = started + std::chrono::seconds(3);
  for (int n = 0; n < options.scenarios; ++n) {
    if ((result.stoppedBySignal = stopSignal())) break;
    unsigned seed = options.firstSeed + unsigned(n);
    ++result.scenarios;
    if (!soakOne(seed, options, result, err)) break;
    if (auto now = std::chrono::steady_clock::now(); now >= nextLine) {
      nextLine = now + std::chrono::seconds(2);
      err << fmt::format("soak: {} of {} phones, {} events, {} closings checked\n", result.scenarios, options.scenarios,
                         result.events, result.closingsChecked);
    }
  }
  return result;
}

int soakCommand(const SoakOptions& options, std::ostream& out, std::ostream& err) {
  catchStopSignals();
  SoakResult result = runSoak(options, err);
  std::string seeds = result.scenarios == 1 ? fmt::format("seed {}", options.firstSeed)
                                            : fmt::format("seeds {} to {}", options.firstSeed,
                                                          options.firstSeed + unsigned(result.scenarios) - 1);
  if (result.failure) {
    out << fmt::format("soak: FAILED at {}\nreplay: tessel-sim soak --seed {} --scenarios 1 --trace\n", *result.failure,
                       *result.failedSeed);
    return kExitExpectFailed;
  }
  out << fmt::format(
      "soak: {} random phone{} ({}), {} events, {} closings checked: each left no panel and every "
      "icon opaque\n",
      result.scenarios, result.scenarios == 1 ? "" : "s", seeds, result.events, result.closingsChecked);
  if (result.stoppedBySignal) {
    err << fmt::format("soak: stopped by signal {} after {} of {} phones\n", result.stoppedBySignal, result.scenarios,
                       options.scenarios);
    return 128 + result.stoppedBySignal;
  }
  return kExitOk;
}

}  // namespace tessel::cli
