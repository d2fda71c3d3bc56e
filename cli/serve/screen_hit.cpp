#include "cli/serve/screen_hit.h"

#include "sim/home_screen.h"
#include "sim/sim_button.h"
#include "sim/sim_folder.h"
#include "sim/sim_host.h"
#include "sim/sim_icon_view.h"
#include "sim/sim_table_view.h"
#include "sim/touch_input.h"

namespace tessel::cli::serve {

namespace {

constexpr const char* kIconGestures[] = {"swipeUp", "swipeDown", "tap", "doubleTap", "tripleTap", "tapAndHold", "hold"};

}  // namespace

ScreenHit hitAt(sim::SimHost& host, const host::Point& windowPoint) {
  ScreenHit hit;
  const auto& window = host.window();
  const sim::HomeScreen* home = host.homeScreen();
  if (!window) return hit;
  auto frontmost = window->hitTest(windowPoint);
  for (sim::SimView* view = frontmost.get(); view; view = view->parent()) {
    if (dynamic_cast<sim::SimButton*>(view)) {
      hit.kind = ScreenHit::Kind::button;
      return hit;
    }
    if (dynamic_cast<sim::SimTableView*>(view)) {
      hit.kind = ScreenHit::Kind::row;
      return hit;
    }
    auto* iconView = dynamic_cast<sim::SimIconView*>(view);
    // The panel's floating copy of an icon is no home-screen icon.
    if (!iconView || !home || !iconView->simIcon() || home->iconViewFor(iconView->simIcon().get()).get() != iconView)
      continue;
    const auto& icon = iconView->simIcon();
    if (auto folder = icon->folder()) {
      hit.kind = ScreenHit::Kind::folderIcon;
      hit.folder = folder->name();
    } else {
      hit.kind = ScreenHit::Kind::icon;
      hit.icon = icon->displayIdentifier();
    }
    return hit;
  }
  return hit;
}

TouchTarget touchTargetAt(sim::SimHost& host, const host::Point& windowPoint) {
  TouchTarget target;
  ScreenHit hit = hitAt(host, windowPoint);
  if (hit.kind != ScreenHit::Kind::icon) return target;
  const sim::HomeScreen* home = host.homeScreen();
  auto view = home->iconViewFor(home->iconFor(hit.icon).get());
  if (!view) return target;
  target.icon = hit.icon;
  for (const auto& recognizer : view->recognizers()) {
    for (const char* gesture : kIconGestures) {
      if (sim::recognizes(*recognizer, gesture)) target.takes.insert(gesture);
    }
  }
  return target;
}

}  // namespace tessel::cli::serve
