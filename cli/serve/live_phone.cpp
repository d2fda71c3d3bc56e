#include "cli/serve/live_phone.h"

#include <algorithm>

#include "cli/serve/screen_hit.h"
#include "sim/held_press.h"
#include "sim/home_screen.h"
#include "sim/sim_host.h"
#include "sim/touch_input.h"
#include "sim/world.h"

namespace tessel::cli::serve {

namespace {

// The height of the keyboard that comes up, as a scenario's keyboard event
// has it when it names no frame.
constexpr double kKeyboardHeight = 291;

}  // namespace

LivePhone::LivePhone(const sim::WorldConfig& config)
    : world_(std::make_unique<sim::World>(config)), settings_(config.settings) {}

LivePhone::~LivePhone() = default;

double LivePhone::now() const { return world_->time(); }

bool LivePhone::gesture(const std::string& icon, const std::string& gesture, double hold, double pressedFor) {
  if (!world_->gesture(icon, gesture, hold, pressedFor)) return false;
  log_.add(now() - pressedFor, "gesture", {{"icon", icon}, {"gesture", gesture}, {"hold", hold}});
  return true;
}

void LivePhone::tap(const host::Point& point) {
  world_->tap(point);
  log_.add(now(), "tap", {{"point", {point.x, point.y}}});
}

bool LivePhone::tapRow(long long row) {
  if (!world_->tapRow(row)) return false;
  log_.add(now(), "tapRow", {{"row", row}});
  return true;
}

void LivePhone::settings(const sim::WorldConfig::Settings& settings) {
  world_->settings(settings);
  settings_ = settings;
  log_.add(now(), "settings",
           {{"enabled", settings.enabled},
            {"darkMode", settings.darkMode},
            {"activationMethod", settings.activationMethod}});
}

void LivePhone::keyboard(bool show) {
  const auto& screen = world_->config().screen;
  double top = show ? screen.height - kKeyboardHeight : screen.height;
  host::Rect frame{0, top, screen.width, kKeyboardHeight};
  world_->keyboard(show, frame);
  keyboardShown_ = show;
  log_.add(now(), "keyboard", {{"show", show}, {"frame", {frame.x, frame.y, frame.width, frame.height}}});
}

void LivePhone::lock() {
  world_->lock();
  log_.add(now(), "lock");
}

void LivePhone::unlock() {
  world_->unlock();
  log_.add(now(), "unlock");
}

void LivePhone::home() {
  world_->home(true);
  log_.add(now(), "home", {{"handled", true}});
}

void LivePhone::doubleHome() {
  world_->doubleHome(true);
  log_.add(now(), "doubleHome", {{"handled", true}});
}

void LivePhone::notify(const std::string& app, const std::string& title, const std::string& message) {
  // Arriving now: a logged event without an age means the same instant.
  sim::WorldConfig::Notification notification{title, message, world_->config().clockEpoch + now()};
  world_->notify(app, notification);
  log_.add(now(), "notify", {{"icon", app}, {"title", title}, {"message", message}});
}

bool LivePhone::page(int index) {
  if (!world_->page(index)) return false;
  log_.add(now(), "page", {{"index", index}});
  return true;
}

bool LivePhone::openFolder(const std::string& name) {
  if (!world_->openFolder(name)) return false;
  log_.add(now(), "openFolder", {{"name", name}});
  return true;
}

bool LivePhone::closeFolder(const std::string& name) {
  if (!world_->closeFolder(name)) return false;
  log_.add(now(), "closeFolder", {{"name", name}});
  return true;
}

void LivePhone::touchDown(const host::Point& point, double t) {
  liftHeld();  // a finger lost without its up
  fingerDown_ = true;
  fingerDownAt_ = now();
  auto lookup = [this](const host::Point& p) { return touchTargetAt(world_->host(), p); };
  perform(touches_.down(point, t, lookup));
}

void LivePhone::touchMove(const host::Point& point, double t) { perform(touches_.move(point, t)); }

void LivePhone::touchUp(const host::Point& point, double t) {
  fingerDown_ = false;
  perform(touches_.up(point, t));
  liftHeld();
}

void LivePhone::touchCancel() {
  fingerDown_ = false;
  perform(touches_.cancel());
  liftHeld();
}

void LivePhone::pollTouches(double t) { perform(touches_.poll(t)); }

void LivePhone::perform(const std::vector<TouchOutcome>& outcomes) {
  for (const auto& outcome : outcomes) {
    switch (outcome.kind) {
      case TouchOutcome::Kind::tap:
        fingerTap(outcome.point);
        break;
      case TouchOutcome::Kind::iconGesture:
        if (outcome.gesture == "hold" || outcome.gesture == "tapAndHold") {
          longPress(outcome.icon, outcome.gesture);
        } else {
          gesture(outcome.icon, outcome.gesture, outcome.hold);
        }
        break;
      case TouchOutcome::Kind::pageSwipe:
        if (const auto* home = world_->host().homeScreen(); home && home->openFolderName().empty())
          page(home->currentPage() + outcome.pageStep);
        break;
    }
  }
}

void LivePhone::longPress(const std::string& icon, const std::string& gesture) {
  // Known only once the finger has stayed down, the press began when the
  // finger went down, as on the phone.
  double pressedFor = std::max(0.0, now() - fingerDownAt_);
  if (!fingerDown_) {
    this->gesture(icon, gesture, std::max(sim::kLongPressBegins, pressedFor), pressedFor);
    return;
  }
  liftHeld();
  held_ = Held{world_->pressAndHold(icon, gesture, pressedFor), icon, gesture, fingerDownAt_};
}

void LivePhone::liftHeld() {
  if (!held_) return;
  Held held = std::move(*held_);
  held_.reset();
  if (held.press) world_->lift(*held.press);
  // Played back, the same press: down when the finger went down, for as
  // long as it stayed.
  log_.add(held.downAt, "gesture", {{"icon", held.icon}, {"gesture", held.gesture}, {"hold", now() - held.downAt}});
}

void LivePhone::fingerTap(const host::Point& point) {
  ScreenHit hit = hitAt(world_->host(), point);
  const auto* home = world_->host().homeScreen();
  std::string openFolderName = home ? home->openFolderName() : std::string();
  if (hit.kind == ScreenHit::Kind::folderIcon && openFolderName.empty()) {
    openFolder(hit.folder);
  } else if (hit.kind == ScreenHit::Kind::nothing && !openFolderName.empty()) {
    closeFolder(openFolderName);
  } else {
    tap(point);
  }
}

}  // namespace tessel::cli::serve
