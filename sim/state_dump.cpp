#include "sim/state_dump.h"

#include <set>
#include <string>

#include "controller/tessel_notification_controller.h"
#include "hooks/library.h"
#include "sim/home_screen.h"
#include "sim/json_values.h"
#include "sim/sim_animator.h"
#include "sim/sim_host.h"
#include "sim/sim_label.h"
#include "sim/sim_notification_center.h"
#include "sim/sim_table_view.h"
#include "sim/sim_table_view_cell.h"
#include "sim/view_description.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel::sim {

using nlohmann::json;

namespace {

template <class T>
json ref(const host::Ref<T>& object) {
  std::string id = idOf(object);
  return id.empty() ? json(nullptr) : json(id);
}

template <class T>
json ref(const host::Weak<T>& object) {
  return ref(object.lock());
}

template <class List>
json refs(const List& list) {
  json out = json::array();
  for (const auto& item : list) out.push_back(ref(item));
  return out;
}

json describeShared(const SharedState& s) {
  return {{"darkMode", s.darkMode},
          {"activationMethod", s.activationMethod},
          {"iconViews", refs(s.iconViews)},
          {"folders", refs(s.folders)},
          {"hasUnlockedOnce", s.hasUnlockedOnce},
          {"bulletinViewController", ref(s.bulletinViewController)},
          {"globalViewSender", ref(s.globalViewSender)},
          {"iconView", ref(s.iconView)},
          {"arrowView", ref(s.arrowView)},
          {"arrowPosition", s.arrowPosition},
          {"checkIconOriginY", s.checkIconOriginY},
          {"iconExistsInFolder", s.iconExistsInFolder},
          {"originToStartFrom", s.originToStartFrom},
          {"verticalOffset", s.verticalOffset},
          {"oldTesselFrame", toJsonValue(s.oldTesselFrame)},
          {"oldArrowFrame", toJsonValue(s.oldArrowFrame)},
          {"newTesselFrame", toJsonValue(s.newTesselFrame)},
          {"intermediateTesselFrame", toJsonValue(s.intermediateTesselFrame)},
          {"intermediateArrowFrame", toJsonValue(s.intermediateArrowFrame)},
          {"realKeyboardDisplacement", s.realKeyboardDisplacement}};
}

json describeController(const TesselNotificationController* c) {
  if (!c) return nullptr;
  return {{"isLightMode", c->isLightMode()},
          {"iconsToMoveUp", refs(c->iconsToMoveUp())},
          {"dismissButton", ref(c->dismissButton())},
          {"genericView", ref(c->genericView())}};
}

// The views the dump lists: the key window's tree, then every view the
// library still names elsewhere.
class ViewCollector {
 public:
  void tree(const SimView& view) {
    add(view);
    for (const auto& child : view.children()) tree(*child);
  }
  template <class T>
  void named(const host::Ref<T>& view) {
    if (const auto* v = simView(host::Ref<host::View>(view))) add(*v);
  }
  json result() const { return views_; }

 private:
  void add(const SimView& view) {
    if (view.id().empty() || !seen_.insert(view.id()).second) return;
    views_[view.id()] = describeView(view);
  }
  std::set<std::string> seen_;
  json views_ = json::object();
};

// The panel's age label: the label in a cell's content view that is neither
// its title nor its detail.
json ageText(const SimTableViewCell& cell) {
  auto content = cell.contentView();
  for (const auto& child : dynamic_cast<const SimView&>(*content).children()) {
    auto* label = dynamic_cast<const SimLabel*>(child.get());
    if (label && label != cell.titleLabel().get() && label != cell.subtitleLabel().get()) {
      auto t = label->text();
      return t ? json(*t) : json(nullptr);
    }
  }
  return nullptr;
}

json describePanel(const TesselNotificationController* controller) {
  if (!controller) return nullptr;
  // A panel swept from the window is no longer shown, though the controller may still name it.
  const auto* shown = simView(controller->genericView());
  if (!shown || !shown->isInWindow()) return nullptr;
  auto panel = controller->panel();
  if (!panel) return nullptr;
  auto text = [](const host::String& s) { return s ? json(*s) : json(nullptr); };
  json cells = json::array();
  std::int64_t rows = static_cast<std::int64_t>(panel->bulletins().size());
  if (const auto* table = dynamic_cast<const SimTableView*>(panel->notificationTable().get())) {
    if (table->rowsLoaded()) rows = table->rows();
    for (const auto& cell : table->cells()) {
      cells.push_back({{"title", text(cell->textLabel()->text())},
                       {"detail", text(cell->detailTextLabel()->text())},
                       {"age", ageText(*cell)}});
    }
  }
  json emptyLabel = nullptr;
  if (const auto* view = simView(panel->view())) {
    for (const auto& child : view->children()) {
      if (const auto* label = dynamic_cast<const SimLabel*>(child.get())) emptyLabel = text(label->text());
    }
  }
  return {{"bundleIdentifier", text(panel->bundleIdentifier())},
          {"rows", rows},
          {"cells", cells},
          {"emptyLabel", emptyLabel},
          {"arrowOffset", panel->arrowOffset()}};
}

json describeHome(const HomeScreen* home) {
  if (!home) return nullptr;
  std::string folder = home->openFolderName();
  // Where each icon is shown, so that a scenario can name an icon's view:
  // "/views/{/home/iconViews/com.example.mail}/recognizers".
  json iconViews = json::object();
  for (const auto& [identifier, icon] : home->icons()) {
    if (auto view = home->iconViewFor(icon.get())) iconViews[identifier] = view->id();
  }
  return {{"page", home->currentPage()},
          {"iconViews", iconViews},
          {"openFolder", folder.empty() ? json(nullptr) : json(folder)},
          {"editing", home->editing()},
          {"locked", home->locked()}};
}

}  // namespace

json stateDumpWithoutAnimations(SimHost& host, const Library* library) {
  const auto& config = host.config();
  // The controller is made on first use, so there may be none yet.
  const TesselNotificationController* controller = library ? library->controller() : nullptr;

  ViewCollector views;
  views.tree(*host.window());
  if (library) {
    const auto& s = library->shared();
    views.named(s.globalViewSender.lock());
    views.named(s.iconView.lock());
    views.named(s.arrowView.lock());
    for (const auto& view : s.iconViews) views.named(view.lock());
  }
  if (controller) {
    views.named(controller->dismissButton());
    views.named(controller->genericView());
    views.named(controller->specializedView());
    for (const auto& view : controller->iconsToMoveUp()) views.named(view);
  }

  json keyboard = json::array();
  for (const auto& name : host.notificationCenter().observedNames()) {
    if (name.rfind("UIKeyboard", 0) == 0) keyboard.push_back(name);
  }
  const auto& recorder = host.recorder();

  return {
      {"time", host.time()},
      {"screen", {{"width", config.screen.width}, {"height", config.screen.height}, {"scale", config.screen.scale}}},
      {"shared", library ? describeShared(library->shared()) : json(nullptr)},
      {"controller", describeController(controller)},
      {"window", host.window()->id()},
      {"views", views.result()},
      {"panel", describePanel(controller)},
      {"home", describeHome(host.homeScreen())},
      {"alerts", recorder.alerts()},
      {"launched", recorder.launches()},
      {"observers", {{"keyboard", keyboard}, {"darwin", host.darwinCenter().observedNames()}}},
      {"hooks", recorder.hooks()},
      {"bundlesLoaded", recorder.bundlesLoaded()},
      {"hostCalls", recorder.hostCalls()}};
}

void forEachAnimation(const SimHost& host, const std::function<void(const json&)>& visit) {
  host.simAnimator().forEachRecord(visit);
}

json stateDump(SimHost& host, const Library* library) {
  json dump = stateDumpWithoutAnimations(host, library);
  json& animations = dump["animations"] = json::array();
  forEachAnimation(host, [&](const json& record) { animations.push_back(record); });
  return dump;
}

}  // namespace tessel::sim
