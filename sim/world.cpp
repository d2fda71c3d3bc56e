#include "sim/world.h"

#include <cstdlib>
#include <filesystem>

#include "hooks/library.h"
#include "hooks/settings_schema.h"
#include "host/hooked_methods.h"
#include "sim/held_press.h"
#include "sim/home_screen.h"
#include "sim/json_values.h"
#include "sim/property_list.h"
#include "sim/sim_host.h"
#include "sim/sim_notification_center.h"
#include "sim/sim_table_view.h"
#include "sim/sim_value.h"
#include "sim/state_dump.h"
#include "sim/touch_input.h"

namespace tessel::sim {

namespace fs = std::filesystem;

using nlohmann::json;

namespace {

constexpr std::int64_t kUnlockSource = 0;
constexpr std::int64_t kLaunchFromHomeScreen = 0;

// A directory standing for the phone's "/" when the configuration names none.
std::string makeScratchRoot() {
  std::string pattern = (fs::temp_directory_path() / "tessel-world-XXXXXX").string();
  const char* made = mkdtemp(pattern.data());
  return made ? std::string(made) : std::string();
}

}  // namespace

struct World::State {
  WorldConfig config;
  std::string scratchRoot;
  // The library goes before the host that it lives in.
  std::unique_ptr<SimHost> host;
  std::unique_ptr<Library> library;

  ~State() {
    library.reset();
    host.reset();
    std::error_code ignored;
    if (!scratchRoot.empty()) fs::remove_all(scratchRoot, ignored);
  }

  HomeScreen& home() { return *host->homeScreen(); }
  std::string settingsPath() const { return host->localPath(std::string(settings::kPath)); }

  // Runs one event as a turn of the main queue, traced with its fields.
  template <class F>
  void event(std::string_view what, json fields, F&& body) {
    host->recorder().event(what, std::move(fields));
    host->runTurn(std::forward<F>(body));
  }
};

World::World(const WorldConfig& config) : state_(std::make_unique<State>()) {
  auto& s = *state_;
  s.config = config;
  std::string root = config.fileSystemRoot;
  if (root.empty()) root = s.scratchRoot = makeScratchRoot();
  s.config.fileSystemRoot = root;
  s.host = std::make_unique<SimHost>(s.config, root);

  // The settings pane's file, as it is on the phone before the home screen starts.
  std::string path = s.settingsPath();
  std::error_code ec;
  fs::create_directories(fs::path(path).parent_path(), ec);
  if (config.settingsFile) {
    fs::remove(path, ec);
    if (*config.settingsFile != "none")
      fs::copy_file(*config.settingsFile, path, fs::copy_options::overwrite_existing, ec);
  } else {
    writeSettingsFile(path, config.settings);
  }

  // The library is loaded first, so that its replacements see the home screen being made.
  s.host->runTurn([&] { s.library = tessel::Library::load(*s.host); });
  s.host->runTurn([&] { s.host->buildHomeScreen(); });
}

World::~World() = default;

SimHost& World::host() { return *state_->host; }
const SimHost& World::host() const { return *state_->host; }
const WorldConfig& World::config() const { return state_->config; }
const Library* World::library() const { return state_->library.get(); }
Library* World::library() { return state_->library.get(); }
double World::time() const { return state_->host->time(); }
void World::advanceTo(double t) { state_->host->advanceTo(t); }

void World::unlock() {
  auto& s = *state_;
  s.event("unlock", {}, [&] {
    auto manager = s.home().lockScreenManager();
    auto unlock = manager->simClass()->method(host::hooked::lockScreenManagerUnlockUIFromSourceWithOptions);
    if (unlock) unlock(host::Ref<host::Object>(manager), kUnlockSource, {});
  });
}

void World::lock() {
  auto& s = *state_;
  s.event("lock", {}, [&] {
    auto controller = s.home().uiController();
    auto changed = controller->simClass()->method(host::hooked::uiControllerDeviceLockStateChanged);
    if (changed) changed(host::Ref<host::Object>(controller), {});
  });
}

bool World::layout(const std::optional<std::string>& bundleIdentifier) {
  auto& s = *state_;
  std::vector<std::shared_ptr<SimIconView>> views;
  if (bundleIdentifier) {
    auto icon = s.home().iconFor(*bundleIdentifier);
    if (auto view = s.home().iconViewFor(icon.get())) views.push_back(view);
    if (views.empty()) return false;
  } else {
    views = s.home().iconViews();
  }
  s.event("layout", {{"icon", bundleIdentifier ? json(*bundleIdentifier) : json(nullptr)}}, [&] {
    for (const auto& view : views) s.host->layoutPass().setNeedsLayout(*view);
  });
  return true;
}

bool World::gesture(const std::string& bundleIdentifier, const std::string& gesture, double hold, double pressedFor) {
  auto& s = *state_;
  if (!isKnownGesture(gesture) || !s.home().iconViewFor(s.home().iconFor(bundleIdentifier).get())) return false;
  s.event("gesture", {{"icon", bundleIdentifier}, {"gesture", gesture}, {"hold", hold}},
          [&] { performGesture(*s.host, bundleIdentifier, gesture, hold, pressedFor); });
  return true;
}

std::shared_ptr<HeldPress> World::pressAndHold(const std::string& bundleIdentifier, const std::string& gesture,
                                               double pressedFor) {
  auto& s = *state_;
  std::shared_ptr<HeldPress> press;
  s.event("pressAndHold", {{"icon", bundleIdentifier}, {"gesture", gesture}, {"pressedFor", pressedFor}},
          [&] { press = HeldPress::press(*s.host, bundleIdentifier, gesture, pressedFor); });
  return press;
}

void World::lift(HeldPress& press) {
  state_->event("lift", {}, [&] { press.lift(); });
}

void World::tap(const host::Point& windowPoint) {
  auto& s = *state_;
  s.event("tap", {{"point", toJsonValue(windowPoint)}}, [&] { tapAt(*s.host, windowPoint); });
}

bool World::tapRow(long long row) {
  auto& s = *state_;
  auto table = firstTableInWindow(*s.host);
  if (!table || row < 0 || row >= table->rows()) return false;
  s.event("tapRow", {{"row", row}}, [&] { table->selectRow(row); });
  return true;
}

void World::home(bool handled) {
  auto& s = *state_;
  s.event("home", {{"handled", handled}}, [&] {
    auto controller = s.home().uiController();
    controller->setHandlesPress(handled);
    auto press = controller->simClass()->method(host::hooked::uiControllerClickedMenuButton);
    if (press) press(host::Ref<host::Object>(controller));
  });
}

void World::doubleHome(bool handled) {
  auto& s = *state_;
  s.event("doubleHome", {{"handled", handled}}, [&] {
    auto controller = s.home().uiController();
    controller->setHandlesPress(handled);
    auto press = controller->simClass()->method(host::hooked::uiControllerHandleMenuDoubleTap);
    if (press) press(host::Ref<host::Object>(controller));
  });
}

bool World::switcherTap(const std::string& bundleIdentifier) {
  auto& s = *state_;
  auto application = s.home().applicationFor(bundleIdentifier);
  if (!application) return false;
  s.event("switcherTap", {{"icon", bundleIdentifier}}, [&] {
    auto switcher = s.home().appSwitcher();
    auto tapped = switcher->simClass()->method(host::hooked::appSwitcherSwitcherScrollerItemTapped);
    if (tapped) tapped(host::Ref<host::Object>(switcher), {}, host::Ref<host::Object>(application));
  });
  return true;
}

bool World::switcherLaunch(const std::string& bundleIdentifier) {
  auto& s = *state_;
  if (!s.home().applicationFor(bundleIdentifier)) return false;
  s.event("switcherLaunch", {{"icon", bundleIdentifier}}, [&] {
    auto switcher = s.home().appSwitcher();
    auto launch = switcher->simClass()->method(host::hooked::appSwitcherLaunchAppWithIdentifierUrlActions);
    if (launch) launch(host::Ref<host::Object>(switcher), bundleIdentifier, {}, {});
  });
  return true;
}

bool World::launch(const std::string& bundleIdentifier) {
  auto& s = *state_;
  auto icon = s.home().iconFor(bundleIdentifier);
  if (!icon) return false;
  s.event("launch", {{"icon", bundleIdentifier}}, [&] { icon->launchFromLocation(kLaunchFromHomeScreen); });
  return true;
}

void World::keyboard(bool show, const host::Rect& endFrame) {
  auto& s = *state_;
  s.event("keyboard", {{"show", show}, {"frame", toJsonValue(endFrame)}}, [&] {
    auto userInfo = std::make_shared<SimDictionary>();
    userInfo->set("UIKeyboardFrameEndUserInfoKey", std::make_shared<SimValue>(endFrame));
    s.host->setKeyboardFrame(show ? std::optional<host::Rect>(endFrame) : std::nullopt);
    s.host->notificationCenter().post(show ? "UIKeyboardWillShowNotification" : "UIKeyboardWillHideNotification",
                                      host::Ref<host::Dictionary>(userInfo));
  });
}

void World::editing(bool on) {
  auto& s = *state_;
  s.event("editing", {{"on", on}}, [&] { s.home().setEditing(on); });
}

bool World::openFolder(const std::string& name) {
  auto& s = *state_;
  if (!s.home().folderNamed(name)) return false;
  s.event("openFolder", {{"name", name}}, [&] { s.home().openFolder(name); });
  return true;
}

bool World::closeFolder(const std::string& name) {
  auto& s = *state_;
  if (s.home().openFolderName() != name || name.empty()) return false;
  s.event("closeFolder", {{"name", name}}, [&] { s.home().closeFolder(name); });
  return true;
}

bool World::page(int index) {
  auto& s = *state_;
  if (index < 0 || static_cast<std::size_t>(index) >= s.home().pageLists().size()) return false;
  s.event("page", {{"index", index}}, [&] { s.home().showPage(index); });
  return true;
}

void World::notify(const std::string& bundleIdentifier, const WorldConfig::Notification& notification) {
  auto& s = *state_;
  s.event("notify",
          {{"icon", bundleIdentifier},
           {"title", notification.title},
           {"message", notification.message},
           {"date", notification.date}},
          [&] { s.home().addNotification(bundleIdentifier, notification); });
}

void World::settings(const WorldConfig::Settings& settings) {
  auto& s = *state_;
  s.event(
      "settings",
      {{"enabled", settings.enabled}, {"darkMode", settings.darkMode}, {"activationMethod", settings.activationMethod}},
      [&] {
        writeSettingsFile(s.settingsPath(), settings);
        s.host->darwinCenter().post(std::string(settings::kChangedNotification));
      });
}

json World::dump() const { return stateDump(*state_->host, state_->library.get()); }

json World::dumpWithoutAnimations() const { return stateDumpWithoutAnimations(*state_->host, state_->library.get()); }

void World::forEachAnimation(const std::function<void(const json&)>& visit) const {
  sim::forEachAnimation(*state_->host, visit);
}

const std::vector<json>& World::trace() const { return state_->host->recorder().trace(); }

void World::streamTrace(std::function<void(const json&)> sink) {
  state_->host->recorder().streamTrace(std::move(sink));
}

}  // namespace tessel::sim
