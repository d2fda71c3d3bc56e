#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "sim/home_geometry.h"
#include "sim/sim_bulletins.h"
#include "sim/sim_folder.h"
#include "sim/sim_icon.h"
#include "sim/sim_icon_controller.h"
#include "sim/sim_icon_list_view.h"
#include "sim/sim_icon_view.h"
#include "sim/system_controllers.h"
#include "sim/world_config.h"

namespace tessel::sim {

class SimHost;

// The home screen: applications, icons, their views in the lists of the
// pages, the dock and the folders, the controllers the library talks to,
// and the notification list. Made by HomeScreenBuilder.
class HomeScreen {
 public:
  explicit HomeScreen(SimHost& host);

  // What the library reaches through the controllers.
  std::shared_ptr<SimIconModel> model() const { return model_; }
  std::shared_ptr<SimIconController> iconController() const { return iconController_; }
  std::shared_ptr<SimIconViewMap> iconViewMap() const { return iconViewMap_; }
  std::shared_ptr<SimApplicationController> applicationController() const { return applicationController_; }
  std::shared_ptr<SimFolder> rootFolder() const { return rootFolder_; }
  std::shared_ptr<SimBulletinListController> legacyBulletinController() const { return legacyBulletins_; }
  std::shared_ptr<SimBulletinViewController> bulletinViewController() const { return bulletinViewController_; }
  std::shared_ptr<SimSystemController> lockScreenManager() const { return lockScreenManager_; }
  std::shared_ptr<SimSystemController> appSwitcher() const { return appSwitcher_; }
  std::shared_ptr<SimUIController> uiController() const { return uiController_; }

  // The icon of an application, web clip or newsstand item; nothing when unknown.
  std::shared_ptr<SimIcon> iconFor(const std::string& identifier) const;
  // Every icon of the home screen, by its display identifier.
  const std::map<std::string, std::shared_ptr<SimIcon>>& icons() const { return icons_; }
  std::shared_ptr<SimIconView> iconViewFor(const SimIcon* icon) const;
  std::shared_ptr<SimApplication> applicationFor(const std::string& bundleIdentifier) const;
  // Every application on the home screen: pages, then the dock, then the
  // folders; web clips are not applications.
  std::vector<std::shared_ptr<SimApplication>> applicationsInOrder() const;
  std::vector<std::shared_ptr<SimIconView>> iconViews() const;

  std::shared_ptr<SimIconListView> currentPageList() const;
  std::shared_ptr<SimIconListView> openFolderList() const;
  std::shared_ptr<SimIconListView> dockList() const { return dockList_; }
  // The window's one content view, which holds the shown page, the dock and
  // an open folder (so, as on the phone, none of them is a direct subview of
  // the window).
  std::shared_ptr<SimView> contentView() const { return contentView_; }
  const std::vector<std::shared_ptr<SimIconListView>>& pageLists() const { return pageLists_; }
  int currentPage() const { return currentPage_; }
  bool editing() const { return editing_; }
  void setEditing(bool on) { editing_ = on; }
  bool locked() const { return locked_; }
  void setLocked(bool locked) { locked_ = locked; }
  const HomeGeometry& geometry() const { return geometry_; }
  const std::string& wallpaperPath() const { return wallpaperPath_; }

  // Shows another page: its list replaces the shown one in the window.
  bool showPage(int index);
  bool openFolder(const std::string& name);
  bool closeFolder(const std::string& name);
  std::shared_ptr<SimFolder> folderNamed(const std::string& name) const;
  std::string openFolderName() const;

  // A new notification for an application: a section is added at the end
  // when it has none.
  void addNotification(const std::string& bundleIdentifier, const WorldConfig::Notification& notification);

 private:
  friend class HomeScreenBuilder;

  SimHost& host_;
  HomeGeometry geometry_;
  std::string wallpaperPath_;
  std::shared_ptr<SimIconController> iconController_;
  std::shared_ptr<SimIconModel> model_;
  std::shared_ptr<SimIconViewMap> iconViewMap_;
  std::shared_ptr<SimApplicationController> applicationController_;
  std::shared_ptr<SimFolder> rootFolder_;
  std::vector<std::shared_ptr<SimFolder>> folders_;
  std::shared_ptr<SimView> contentView_;
  std::vector<std::shared_ptr<SimIconListView>> pageLists_;
  std::shared_ptr<SimIconListView> dockList_;
  std::map<std::string, std::shared_ptr<SimApplication>> applications_;
  std::vector<std::shared_ptr<SimApplication>> homeApplications_;
  std::map<std::string, std::shared_ptr<SimIcon>> icons_;
  std::map<const SimIcon*, std::shared_ptr<SimIconView>> iconViews_;
  std::shared_ptr<NotificationList> notifications_;
  std::shared_ptr<SimBulletinViewController> bulletinViewController_;
  std::shared_ptr<SimBulletinListController> legacyBulletins_;
  std::shared_ptr<SimSystemController> lockScreenManager_;
  std::shared_ptr<SimSystemController> appSwitcher_;
  std::shared_ptr<SimUIController> uiController_;
  int currentPage_ = 0;
  int openFolder_ = -1;
  bool editing_ = false;
  bool locked_ = true;
};

}  // namespace tessel::sim
