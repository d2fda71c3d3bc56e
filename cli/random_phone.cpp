#include "cli/random_phone.h"

#include <algorithm>

namespace tessel::cli {

sim::WorldConfig RandomPhone::config() {
  sim::WorldConfig c;
  const double screens[][2] = {{320, 480}, {320, 568}, {375, 667}, {390, 844}, {768, 1024}};
  const auto& s = screens[pick(0, 4)];
  c.screen = {s[0], s[1], 1};
  c.settings.darkMode = pick(0, 1) == 1;
  c.settings.activationMethod = pick(0, 9) == 0 ? pick(-1, 7) : pick(0, 4);
  c.coreFoundationVersion = pick(0, 3) == 0 ? 800.0 : 1751.108;
  for (int p = 0, pages = pick(1, 3); p < pages; ++p) {
    std::vector<std::string> page;
    for (int i = 0, icons = pick(1, 20); i < icons; ++i) page.push_back(app());
    c.pages.push_back(page);
  }
  for (int i = 0, n = pick(0, 4); i < n; ++i) c.dock.push_back(app());
  if (pick(0, 1) == 1) c.folders = {{"Tools", 0, 0, {app(), app()}}};
  if (pick(0, 1) == 1) c.webClips = {"com.example.clip"};
  for (const auto& id : apps_) {
    if (pick(0, 2) == 0) continue;
    std::vector<sim::WorldConfig::Notification> list;
    for (int i = 0, n = pick(0, 30); i < n; ++i) {
      // Ages in the past and, now and then, in the future; texts empty to long.
      double age = pick(0, 9) == 0 ? -pick(1, 100000) : pick(0, 400000);
      list.push_back({std::string(static_cast<std::size_t>(pick(0, 3)) * 17, 'T'),
                      std::string(static_cast<std::size_t>(pick(0, 6)) * 23, 'm'), c.clockEpoch - age});
    }
    c.notifications.push_back({id, list});
  }
  return c;
}

bool RandomPhone::event(sim::World& world, const std::function<void(const std::string&)>& trace) {
  const std::string id = apps_.empty() ? "com.example.none" : apps_[pick(0, int(apps_.size()) - 1)];
  const char* gestures[] = {"swipeUp", "swipeDown", "tap", "doubleTap", "tripleTap", "tapAndHold", "hold"};
  switch (pick(0, 19)) {
    case 0:
    case 1:
    case 2:
    case 3: {
      const char* gesture = gestures[pick(0, 6)];
      const double hold = pick(0, 20) / 10.0;
      trace("gesture " + id + " " + gesture);
      // A long press acts again when the finger lifts, which may reopen the panel.
      if (world.gesture(id, gesture, hold)) settledAfter_ = std::max(settledAfter_, world.time() + hold);
      return false;
    }
    case 4:
      trace("tap");
      world.tap({double(pick(0, 400)), double(pick(0, 900))});
      return false;
    case 5:
      trace("tapRow");
      return world.tapRow(pick(0, 3));
    case 6: {
      trace("home");
      bool handled = pick(0, 1) == 1;
      world.home(handled);
      return handled;
    }
    case 7: {
      trace("doubleHome");
      bool handled = pick(0, 1) == 1;
      world.doubleHome(handled);
      return handled;
    }
    case 8:
      trace("lock");
      world.lock();
      return true;
    case 9:
      trace("unlock");
      world.unlock();
      return true;
    case 10:
      trace("launch");
      return world.launch(id);
    case 11:
      trace("switcherTap");
      return world.switcherTap(id);
    case 12:
      trace("keyboard");
      world.keyboard(pick(0, 1) == 1, {0, double(pick(200, 600)), 400, 300});
      return false;
    case 13:
      trace("editing");
      world.editing(pick(0, 1) == 1);
      return false;
    case 14:
      trace("layout");
      world.layout(id);
      return false;
    case 16: {
      trace("notify " + id);
      double age = pick(0, 9) == 0 ? -pick(1, 1000) : pick(0, 100000);
      world.notify(id, {std::string(std::size_t(pick(0, 2)) * 11, 'N'), std::string(std::size_t(pick(0, 4)) * 29, 'w'),
                        world.config().clockEpoch + world.time() - age});
      return false;
    }
    case 17: {
      trace("settings");
      sim::WorldConfig::Settings settings{pick(0, 5) != 0, pick(0, 1) == 1, pick(0, 9) == 0 ? pick(-3, 9) : pick(0, 4)};
      world.settings(settings);
      return false;
    }
    case 18:
      trace("page");
      world.page(pick(0, 3));
      return false;
    case 19:
      trace("switcherLaunch " + id);
      return world.switcherLaunch(id);
    default:
      trace("folder");
      pick(0, 1) ? world.openFolder("Tools") : world.closeFolder("Tools");
      return false;
  }
}

double RandomPhone::pause() { return pick(0, 4) == 0 ? 0 : pick(1, 800) / 1000.0; }

std::string RandomPhone::app() {
  apps_.push_back("com.example.app" + std::to_string(apps_.size()));
  return apps_.back();
}

}  // namespace tessel::cli
