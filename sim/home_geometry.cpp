#include "sim/home_geometry.h"

#include <algorithm>
#include <cmath>

#include "sim/sim_icon_view.h"

namespace tessel::sim {

namespace {

constexpr double kW = SimIconView::kWidth;
constexpr double kH = SimIconView::kHeight;
constexpr double kTopInset = 16;
constexpr double kMinRowGap = 14;
constexpr double kMaxRows = 6;

}  // namespace

HomeGeometry::HomeGeometry(const WorldConfig& config) {
  double w = config.screen.width;
  double h = config.screen.height;
  pageList_ = config.pageList.value_or(host::Rect{0, kStatusBarHeight, w, h - kStatusBarHeight - kDockHeight});
  dockList_ = config.dockList.value_or(host::Rect{0, h - kDockHeight, w, kDockHeight});
  double side = std::min(w - 48, 300.0);
  double folderGap = (side - kFolderColumns * kW) / (kFolderColumns + 1);
  double folderHeight = 3 * (kH + folderGap) + folderGap;
  folderList_ = config.folderList.value_or(host::Rect{(w - side) / 2, (h - folderHeight) / 2, side, folderHeight});

  pageGap_ = std::max(0.0, (pageList_.width - kPageColumns * kW) / (kPageColumns + 1));
  // As many rows as fit with a small gap, spread over the list's height.
  double usable = pageList_.height - 2 * kTopInset;
  double rows = std::clamp(std::floor((usable + kMinRowGap) / (kH + kMinRowGap)), 1.0, kMaxRows);
  rowPitch_ = rows > 1 ? (usable - kH) / (rows - 1) : kH + kMinRowGap;
  folderGap_ = std::max(0.0, (folderList_.width - kFolderColumns * kW) / (kFolderColumns + 1));
}

host::Rect HomeGeometry::pagePlace(std::size_t index) const {
  double column = static_cast<double>(index % kPageColumns);
  double row = static_cast<double>(index / kPageColumns);
  return {pageGap_ + column * (kW + pageGap_), kTopInset + row * rowPitch_, kW, kH};
}

host::Rect HomeGeometry::dockPlace(std::size_t index, std::size_t count) const {
  double n = static_cast<double>(std::max<std::size_t>(count, 1));
  double gap = std::max(0.0, (dockList_.width - n * kW) / (n + 1));
  return {gap + static_cast<double>(index) * (kW + gap), (dockList_.height - kH) / 2, kW, kH};
}

host::Rect HomeGeometry::folderPlace(std::size_t index) const {
  double column = static_cast<double>(index % kFolderColumns);
  double row = static_cast<double>(index / kFolderColumns);
  return {folderGap_ + column * (kW + folderGap_), folderGap_ + row * (kH + folderGap_), kW, kH};
}

}  // namespace tessel::sim
