#include "sim/home_screen.h"

#include <algorithm>

#include "sim/sim_host.h"

namespace tessel::sim {

HomeScreen::HomeScreen(SimHost& host)
    : host_(host), geometry_(host.config()), wallpaperPath_(host.config().wallpaperPath) {}

std::shared_ptr<SimIcon> HomeScreen::iconFor(const std::string& identifier) const {
  auto found = icons_.find(identifier);
  return found == icons_.end() ? nullptr : found->second;
}

std::shared_ptr<SimIconView> HomeScreen::iconViewFor(const SimIcon* icon) const {
  auto found = iconViews_.find(icon);
  return found == iconViews_.end() ? nullptr : found->second;
}

std::shared_ptr<SimApplication> HomeScreen::applicationFor(const std::string& bundleIdentifier) const {
  auto found = applications_.find(bundleIdentifier);
  return found == applications_.end() ? nullptr : found->second;
}

std::vector<std::shared_ptr<SimApplication>> HomeScreen::applicationsInOrder() const { return homeApplications_; }

std::vector<std::shared_ptr<SimIconView>> HomeScreen::iconViews() const {
  std::vector<std::shared_ptr<SimIconView>> views;
  auto collect = [&](const std::shared_ptr<SimIconListView>& list) {
    for (const auto& icon : list->icons()) {
      if (auto view = iconViewFor(icon.get())) views.push_back(view);
    }
  };
  for (const auto& list : pageLists_) collect(list);
  if (dockList_) collect(dockList_);
  for (const auto& folder : folders_) {
    for (const auto& list : folder->lists()) collect(list);
  }
  return views;
}

std::shared_ptr<SimIconListView> HomeScreen::currentPageList() const {
  if (currentPage_ < 0 || static_cast<std::size_t>(currentPage_) >= pageLists_.size()) return nullptr;
  return pageLists_[static_cast<std::size_t>(currentPage_)];
}

std::shared_ptr<SimIconListView> HomeScreen::openFolderList() const {
  if (openFolder_ < 0) return nullptr;
  const auto& lists = folders_[static_cast<std::size_t>(openFolder_)]->lists();
  return lists.empty() ? nullptr : lists.front();
}

bool HomeScreen::showPage(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= pageLists_.size()) return false;
  if (index == currentPage_) return true;
  auto shown = currentPageList();
  if (shown) shown->removeFromSuperview();
  currentPage_ = index;
  // The page lies at the back, below the dock and any folder.
  contentView_->insertChild(currentPageList(), 0);
  return true;
}

std::shared_ptr<SimFolder> HomeScreen::folderNamed(const std::string& name) const {
  auto found = std::find_if(folders_.begin(), folders_.end(), [&](const auto& f) { return f->name() == name; });
  return found == folders_.end() ? nullptr : *found;
}

std::string HomeScreen::openFolderName() const {
  return openFolder_ < 0 ? std::string() : folders_[static_cast<std::size_t>(openFolder_)]->name();
}

bool HomeScreen::openFolder(const std::string& name) {
  auto found = std::find_if(folders_.begin(), folders_.end(), [&](const auto& f) { return f->name() == name; });
  if (found == folders_.end()) return false;
  if (auto open = openFolderList()) open->removeFromSuperview();
  openFolder_ = static_cast<int>(found - folders_.begin());
  if (auto list = openFolderList()) contentView_->addChild(list);
  return true;
}

bool HomeScreen::closeFolder(const std::string& name) {
  if (openFolder_ < 0 || openFolderName() != name) return false;
  if (auto list = openFolderList()) list->removeFromSuperview();
  openFolder_ = -1;
  return true;
}

void HomeScreen::addNotification(const std::string& bundleIdentifier, const WorldConfig::Notification& notification) {
  auto& list = *notifications_;
  auto found = std::find_if(list.sections.begin(), list.sections.end(),
                            [&](const auto& s) { return s->sectionID() == bundleIdentifier; });
  std::shared_ptr<SimNotificationSection> section;
  if (found == list.sections.end()) {
    section = host_.create<SimNotificationSection>("SBNotificationListSection", bundleIdentifier);
    list.sections.push_back(section);
    list.controllers.push_back(host_.create<SimSectionController>("SBNotificationSectionController", section));
  } else {
    section = *found;
  }
  section->addNewest(host::Ref<host::Bulletin>(
      host_.create<SimBulletin>("SBBulletin", notification.title, notification.message, notification.date)));
}

}  // namespace tessel::sim
