#pragma once

#include <cstddef>

#include "host/geometry.h"
#include "sim/world_config.h"

namespace tessel::sim {

// Where the home screen's lists stand in the window and where each icon
// stands in its list: a page below the status bar filled row by row, four
// to a row; the dock along the bottom; an open folder in the middle, three
// to a row. Lists pinned in the configuration win.
class HomeGeometry {
 public:
  static constexpr double kStatusBarHeight = 20;
  static constexpr double kDockHeight = 96;
  static constexpr std::size_t kPageColumns = 4;
  static constexpr std::size_t kFolderColumns = 3;

  explicit HomeGeometry(const WorldConfig& config);

  const host::Rect& pageList() const { return pageList_; }
  const host::Rect& dockList() const { return dockList_; }
  const host::Rect& folderList() const { return folderList_; }

  // Frames in the list's own coordinates.
  host::Rect pagePlace(std::size_t index) const;
  host::Rect dockPlace(std::size_t index, std::size_t count) const;
  host::Rect folderPlace(std::size_t index) const;

 private:
  host::Rect pageList_;
  host::Rect dockList_;
  host::Rect folderList_;
  double pageGap_ = 0;
  double rowPitch_ = 0;
  double folderGap_ = 0;
};

}  // namespace tessel::sim
