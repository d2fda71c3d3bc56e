#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/table_view.h"
#include "sim/sim_scroll_view.h"

namespace tessel::sim {

class SimTableViewCell;

// `UITableView` with one section. Once it is in the window it asks its data
// source for the number of rows and for the cells of the rows that its
// bounds show, and keeps those cells as subviews above its background view.
// The data source and delegate are not kept alive.
class SimTableView : public SimScrollView, public virtual host::TableView {
 public:
  static constexpr double kDefaultRowHeight = 44;

  SimTableView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame, std::int64_t style);
  void awake() override;

  // |host::TableView|
  void setBackgroundView(const host::Ref<host::View>& view) override;
  void setRowHeight(double height) override { rowHeight_ = height; }
  void setDelegate(const host::Ref<host::Object>& delegate) override { delegate_ = delegate; }
  void setDataSource(const host::Ref<host::Object>& dataSource) override { dataSource_ = dataSource; }
  void registerClassForCellReuseIdentifier(std::string_view className, const host::String& identifier) override;

  // Asks the data source for its rows and the visible cells afresh.
  void loadRows();
  // Tells the delegate that a row was selected.
  void selectRow(std::int64_t row);
  // The row under a point in the table's coordinates, or -1.
  std::int64_t rowAt(const host::Point& point) const;

  std::int64_t style() const { return style_; }
  double rowHeight() const { return rowHeight_; }
  std::int64_t rows() const { return rows_; }
  bool rowsLoaded() const { return loaded_; }
  const std::vector<std::shared_ptr<SimTableViewCell>>& cells() const { return cells_; }
  std::shared_ptr<SimView> backgroundView() const { return backgroundView_.lock(); }
  bool hasDataSource() const { return static_cast<bool>(dataSource_); }

  void layoutSubviewsNow() override;

 private:
  std::int64_t style_;
  double rowHeight_ = kDefaultRowHeight;
  host::Weak<host::Object> delegate_;
  host::Weak<host::Object> dataSource_;
  std::weak_ptr<SimView> backgroundView_;
  std::vector<std::pair<std::string, host::String>> registeredCells_;
  std::int64_t rows_ = 0;
  bool loaded_ = false;
  std::vector<std::shared_ptr<SimTableViewCell>> cells_;
};

}  // namespace tessel::sim
