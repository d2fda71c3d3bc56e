#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/view.h"

namespace tessel::host {

struct IndexPath {
  std::vector<std::int64_t> indexes;
  std::int64_t section() const { return indexes.size() > 0 ? indexes[0] : 0; }
  std::int64_t row() const { return indexes.size() > 1 ? indexes[1] : 0; }
  static IndexPath forRowInSection(std::int64_t row, std::int64_t section) { return {{section, row}}; }
  friend bool operator==(const IndexPath&, const IndexPath&) = default;
};

// `UITableViewCell`.
class TableViewCell : public virtual View {
 public:
  virtual Ref<Label> textLabel() const { return {}; }
  virtual Ref<Label> detailTextLabel() const { return {}; }
  virtual Ref<View> contentView() const { return {}; }
  virtual void setBackgroundView(const Ref<View>& /*view*/) {}
};

class TableView;

// A table's data source and delegate, as one object (the library's panel).
class TableDataSource {
 public:
  virtual ~TableDataSource() = default;
  virtual std::int64_t tableViewNumberOfRowsInSection(const Ref<TableView>& table, std::int64_t section) noexcept = 0;
  virtual Ref<TableViewCell> tableViewCellForRowAtIndexPath(const Ref<TableView>& table,
                                                            const IndexPath& indexPath) noexcept = 0;
  virtual void tableViewDidSelectRowAtIndexPath(const Ref<TableView>& table, const IndexPath& indexPath) noexcept = 0;
};

// `UITableView`. It asks its data source for the rows that it shows; the
// data source and delegate are not kept alive by the table.
class TableView : public virtual ScrollView {
 public:
  virtual void setBackgroundView(const Ref<View>& /*view*/) {}
  virtual void setRowHeight(double /*height*/) {}
  virtual void setDelegate(std::weak_ptr<TableDataSource> /*delegate*/) {}
  virtual void setDataSource(std::weak_ptr<TableDataSource> /*dataSource*/) {}
  virtual void registerClassForCellReuseIdentifier(std::string_view /*className*/, const String& /*identifier*/) {}
};

}  // namespace tessel::host
