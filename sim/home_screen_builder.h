#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sim/home_screen.h"

namespace tessel::sim {

// Makes the home screen from the configuration, as the host does at start:
// the root folder and every folder through their initialiser's method-table
// entry, the icons and their views in their lists, the notification list
// (the current generation's controller through its initialiser), and the
// shown page and the dock in the window.
class HomeScreenBuilder {
 public:
  HomeScreenBuilder(SimHost& host, HomeScreen& home);
  void build();

 private:
  std::size_t pageCount() const;
  std::shared_ptr<SimApplication> application(const std::string& bundleIdentifier);
  std::shared_ptr<SimFolder> initialisedFolder(const std::string& className, std::uint64_t lists);
  std::shared_ptr<SimIcon> icon(const std::string& className, const std::string& identifier);
  void place(SimIconListView& list, const std::shared_ptr<SimIcon>& icon, const host::Rect& place,
             const std::string& viewClass, bool inDock);
  host::Rect pinned(const std::string& identifier, const host::Rect& place) const;
  void buildPages();
  void buildDock();
  void buildFolderLists();
  void buildNotificationList();
  std::shared_ptr<SimImage> pictureFor(const std::string& identifier, const host::Color& color) const;

  SimHost& host_;
  HomeScreen& home_;
  const WorldConfig& config_;
  std::vector<std::shared_ptr<SimIcon>> folderIcons_;
};

}  // namespace tessel::sim
