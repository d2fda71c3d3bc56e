#include "sim/sim_table_view.h"

#include <cmath>

#include "host/host.h"
#include "sim/layout_pass.h"
#include "sim/library_objects.h"
#include "sim/sim_host.h"
#include "sim/sim_table_view_cell.h"

namespace tessel::sim {

SimTableView::SimTableView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame, std::int64_t style)
    : SimScrollView(host, std::move(cls), frame), style_(style) {}

void SimTableView::awake() { simHost().layoutPass().tableWantsRows(*this); }

void SimTableView::setBackgroundView(const host::Ref<host::View>& view) {
  replaceBackgroundView(backgroundView_, view);
}

void SimTableView::registerClassForCellReuseIdentifier(std::string_view className, const host::String& identifier) {
  registeredCells_.emplace_back(std::string(className), identifier);
}

void SimTableView::loadRows() {
  auto keep = self<SimTableView>();
  for (const auto& cell : cells_) cell->removeFromSuperview();
  cells_.clear();
  loaded_ = true;
  auto sourceObject = dataSource_.lock();  // keeps the library's object alive while it answers
  auto* source = viewDelegateOf(sourceObject);
  if (!source) {
    rows_ = 0;
    return;
  }
  host::Ref<host::TableView> me(keep);
  rows_ = std::max<std::int64_t>(0, source->tableViewNumberOfRowsInSection(me, 0));
  double height = bounds().height;
  for (std::int64_t row = 0; row < rows_ && rowHeight_ > 0 && row * rowHeight_ < height; ++row) {
    auto cell = source->tableViewCellForRowAtIndexPath(me, host::IndexPath::forRowInSection(row, 0));
    auto simCell = std::dynamic_pointer_cast<SimTableViewCell>(cell.shared());
    if (!simCell) continue;
    simCell->setFrame({0, row * rowHeight_, bounds().width, rowHeight_});
    addChild(simCell);
    cells_.push_back(simCell);
  }
}

void SimTableView::selectRow(std::int64_t row) {
  auto keep = self<SimTableView>();
  auto delegateObject = delegate_.lock();
  if (auto* delegate = viewDelegateOf(delegateObject)) {
    delegate->tableViewDidSelectRowAtIndexPath(host::Ref<host::TableView>(keep),
                                               host::IndexPath::forRowInSection(row, 0));
  }
}

std::int64_t SimTableView::rowAt(const host::Point& point) const {
  if (rowHeight_ <= 0 || point.y < 0 || point.x < 0 || point.x >= bounds().width) return -1;
  auto row = static_cast<std::int64_t>(std::floor(point.y / rowHeight_));
  return row < rows_ ? row : -1;
}

void SimTableView::layoutSubviewsNow() {
  if (auto background = backgroundView_.lock()) background->setFrame(bounds());
}

}  // namespace tessel::sim
