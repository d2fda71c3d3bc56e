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

// `UITableView`. It asks its data source (a view of the library's, see
// ViewDelegate) for the rows that it shows; the data source and delegate are
// not kept alive by the table.
class TableView : public virtual ScrollView {
 public:
  virtual void setBackgroundView(const Ref<View>& /*view*/) {}
  virtual void setRowHeight(double /*height*/) {}
  virtual void setDelegate(const Ref<Object>& /*delegate*/) {}
  virtual void setDataSource(const Ref<Object>& /*dataSource*/) {}
  virtual void registerClassForCellReuseIdentifier(std::string_view /*className*/, const String& /*identifier*/) {}
};

}  // namespace tessel::host
