#include "sim/home_screen_builder.h"

#include <algorithm>

#include "host/hooked_methods.h"
#include "sim/icon_art.h"
#include "sim/png_loader.h"
#include "sim/sim_host.h"

namespace tessel::sim {

namespace {

constexpr std::uint64_t kIconsPerList = 24;

}  // namespace

HomeScreenBuilder::HomeScreenBuilder(SimHost& host, HomeScreen& home)
    : host_(host), home_(home), config_(host.config()) {}

void HomeScreenBuilder::build() {
  home_.iconController_ = host_.create<SimIconController>("SBIconController", home_);
  home_.model_ = host_.create<SimIconModel>("SBIconModel", home_);
  home_.iconViewMap_ = host_.create<SimIconViewMap>("SBIconViewMap", home_);
  home_.applicationController_ = host_.create<SimApplicationController>("SBApplicationController", home_);
  home_.lockScreenManager_ = host_.create<SimSystemController>("SBLockScreenManager");
  home_.appSwitcher_ = host_.create<SimSystemController>("SBAppSwitcherController");
  home_.uiController_ = host_.create<SimUIController>("SBUIController");
  for (const auto& [identifier, app] : config_.apps) application(identifier);

  home_.rootFolder_ = initialisedFolder("SBRootFolderWithDock", pageCount() + 1);
  for (const auto& folder : config_.folders) {
    auto made = initialisedFolder("SBFolder", 1);
    made->setName(folder.name);
    home_.folders_.push_back(made);
    auto folderIcon = icon("SBFolderIcon", "");
    folderIcon->setDisplayIdentifier(folder.name);
    folderIcon->setDisplayName(folder.name);
    folderIcon->setFolder(made);
    folderIcon->setImage(generatedIconImage({0.85, 0.85, 0.88, 1}, SimIconView::kWidth, config_.screen.scale));
    folderIcons_.push_back(folderIcon);
  }

  buildPages();
  buildDock();
  buildFolderLists();
  buildNotificationList();

  int shown = std::clamp(config_.page, 0, static_cast<int>(home_.pageLists_.size()) - 1);
  home_.currentPage_ = shown;
  home_.contentView_ = host_.create<SimView>("UIView", host_.screenBounds());
  host_.window()->addChild(home_.contentView_);
  home_.contentView_->addChild(home_.pageLists_[static_cast<std::size_t>(shown)]);
  home_.contentView_->addChild(home_.dockList_);
}

std::size_t HomeScreenBuilder::pageCount() const {
  // At least one page, and one for every folder placed on a page.
  std::size_t count = std::max<std::size_t>(config_.pages.size(), 1);
  for (const auto& folder : config_.folders) {
    count = std::max<std::size_t>(count, static_cast<std::size_t>(std::max(folder.page, 0)) + 1);
  }
  return count;
}

std::shared_ptr<SimApplication> HomeScreenBuilder::application(const std::string& bundleIdentifier) {
  if (auto known = home_.applicationFor(bundleIdentifier)) return known;
  auto configured = config_.apps.find(bundleIdentifier);
  WorldConfig::App app = configured == config_.apps.end() ? WorldConfig::App{} : configured->second;
  std::string name = app.name.empty() ? generatedName(bundleIdentifier) : app.name;
  host::Color color = parseHexColor(app.color).value_or(generatedColor(bundleIdentifier));
  auto made = host_.create<SimApplication>("SBApplication", bundleIdentifier, name, color);
  home_.applications_.emplace(bundleIdentifier, made);
  return made;
}

std::shared_ptr<SimFolder> HomeScreenBuilder::initialisedFolder(const std::string& className, std::uint64_t lists) {
  auto folder = host_.create<SimFolder>(className);
  // Initialised through the method table, so that a replacement sees every folder.
  auto init = folder->simClass()->method(host::hooked::folderInitWithMaxListCountMaxIconCountInLists);
  if (init) init(host::Ref<host::Folder>(folder), lists, kIconsPerList);
  return folder;
}

std::shared_ptr<SimIcon> HomeScreenBuilder::icon(const std::string& className, const std::string& identifier) {
  auto made = host_.create<SimIcon>(className);
  if (identifier.empty()) return made;
  made->setDisplayIdentifier(identifier);
  if (className == "SBWebApplicationIcon") {
    // A web clip has no application, but the scenario may still name and colour it.
    auto configured = config_.apps.find(identifier);
    bool given = configured != config_.apps.end();
    made->setDisplayName(given && !configured->second.name.empty() ? configured->second.name
                                                                   : generatedName(identifier));
    host::Color color = generatedColor(identifier);
    if (given) color = parseHexColor(configured->second.color).value_or(color);
    made->setImage(pictureFor(identifier, color));
  } else {
    auto app = application(identifier);
    made->setApp(app);
    made->setDisplayName(app->name());
    made->setImage(pictureFor(identifier, app->color()));
  }
  home_.icons_.emplace(identifier, made);
  return made;
}

std::shared_ptr<SimImage> HomeScreenBuilder::pictureFor(const std::string& identifier, const host::Color& color) const {
  auto configured = config_.apps.find(identifier);
  if (configured != config_.apps.end() && !configured->second.iconPath.empty()) {
    if (auto loaded = loadPng(configured->second.iconPath).image) return loaded;
  }
  return generatedIconImage(color, SimIconView::kWidth, config_.screen.scale);
}

host::Rect HomeScreenBuilder::pinned(const std::string& identifier, const host::Rect& place) const {
  auto found = config_.frames.find(identifier);
  return found == config_.frames.end() ? place : found->second;
}

void HomeScreenBuilder::place(SimIconListView& list, const std::shared_ptr<SimIcon>& icon, const host::Rect& place,
                              const std::string& viewClass, bool inDock) {
  auto view = host_.create<SimIconView>(viewClass, place);
  view->setIcon(icon);
  view->setInDock(inDock);
  list.addIcon(icon, view, pinned(icon->displayIdentifier(), place));
  home_.iconViews_.emplace(icon.get(), view);
}

void HomeScreenBuilder::buildPages() {
  const auto& geometry = home_.geometry_;
  std::vector<std::vector<std::shared_ptr<SimIcon>>> pages(pageCount());
  for (std::size_t p = 0; p < config_.pages.size(); ++p) {
    for (const auto& identifier : config_.pages[p]) {
      if (!home_.iconFor(identifier)) pages[p].push_back(icon("SBApplicationIcon", identifier));
    }
  }
  for (std::size_t f = 0; f < config_.folders.size(); ++f) {
    auto& page = pages[static_cast<std::size_t>(std::max(config_.folders[f].page, 0))];
    auto slot = std::min<std::size_t>(static_cast<std::size_t>(std::max(config_.folders[f].slot, 0)), page.size());
    page.insert(page.begin() + static_cast<std::ptrdiff_t>(slot), folderIcons_[f]);
  }
  // Web clips and newsstand items follow the icons of the last page.
  for (const auto& identifier : config_.webClips) {
    if (!home_.iconFor(identifier)) pages.back().push_back(icon("SBWebApplicationIcon", identifier));
  }
  for (const auto& identifier : config_.newsstand) {
    if (!home_.iconFor(identifier)) pages.back().push_back(icon("SBNewsstandApplicationIcon", identifier));
  }
  for (const auto& page : pages) {
    auto list = host_.create<SimIconListView>("SBRootIconListView", geometry.pageList());
    for (std::size_t i = 0; i < page.size(); ++i) {
      bool newsstand = page[i]->isKindOf("SBNewsstandApplicationIcon");
      place(*list, page[i], geometry.pagePlace(i), newsstand ? "SBNewsstandItemIconView" : "SBIconView", false);
      if (page[i]->app()) home_.homeApplications_.push_back(page[i]->app());
    }
    home_.pageLists_.push_back(list);
    home_.rootFolder_->addList(list);
  }
}

void HomeScreenBuilder::buildDock() {
  const auto& geometry = home_.geometry_;
  home_.dockList_ = host_.create<SimIconListView>("SBDockIconListView", geometry.dockList());
  std::vector<std::shared_ptr<SimIcon>> icons;
  for (const auto& identifier : config_.dock) {
    if (!home_.iconFor(identifier)) icons.push_back(icon("SBApplicationIcon", identifier));
  }
  for (std::size_t i = 0; i < icons.size(); ++i) {
    place(*home_.dockList_, icons[i], geometry.dockPlace(i, icons.size()), "SBIconView", true);
    home_.homeApplications_.push_back(icons[i]->app());
  }
  home_.rootFolder_->addList(home_.dockList_);
}

void HomeScreenBuilder::buildFolderLists() {
  const auto& geometry = home_.geometry_;
  for (std::size_t f = 0; f < config_.folders.size(); ++f) {
    auto list = host_.create<SimIconListView>("SBFolderIconListView", geometry.folderList());
    std::size_t index = 0;
    for (const auto& identifier : config_.folders[f].icons) {
      if (home_.iconFor(identifier)) continue;
      auto made = icon("SBApplicationIcon", identifier);
      place(*list, made, geometry.folderPlace(index++), "SBIconView", false);
      home_.homeApplications_.push_back(made->app());
    }
    home_.folders_[f]->addList(list);
  }
}

void HomeScreenBuilder::buildNotificationList() {
  home_.notifications_ = std::make_shared<NotificationList>();
  auto& list = *home_.notifications_;
  for (const auto& [identifier, notifications] : config_.notifications) {
    auto section = host_.create<SimNotificationSection>("SBNotificationListSection", identifier);
    for (const auto& n : notifications) {
      section->addOldest(
          host::Ref<host::Bulletin>(host_.create<SimBulletin>("SBBulletin", n.title, n.message, n.date)));
    }
    list.sections.push_back(section);
    list.controllers.push_back(host_.create<SimSectionController>("SBNotificationSectionController", section));
  }
  // Older hosts keep the list in the list controller; current ones make a
  // view controller through its initialiser.
  if (host_.coreFoundationVersionNumber() <= 800.0) {
    home_.legacyBulletins_ = host_.create<SimBulletinListController>("SBBulletinListController", home_.notifications_);
    return;
  }
  auto controller = host_.create<SimBulletinViewController>("SBBulletinViewController", home_.notifications_);
  auto init = controller->simClass()->method(host::hooked::bulletinViewControllerInitWithNibNameBundle);
  if (init) init(host::Ref<host::BulletinViewController>(controller), host::String(), host::Ref<host::Object>());
  home_.bulletinViewController_ = controller;
}

}  // namespace tessel::sim
