#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/icon_controller.h"
#include "sim/sim_icon_list_view.h"
#include "sim/sim_object.h"

namespace tessel::sim {

// `SBFolder` (or the root folder): icons in lists. A folder has one list;
// the root folder has one list per page and then the dock's list. Index
// paths are [list, icon], and for an icon inside a folder on a page
// [list, folder icon, folder list, icon].
class SimFolder : public SimObject, public virtual host::Folder {
 public:
  using SimObject::SimObject;

  // |host::Folder|
  std::vector<host::Ref<host::Icon>> allIcons() const override;
  host::IndexPath indexPathForIcon(const host::Ref<host::Icon>& icon) const override;

  // The path of an icon in this folder or in a folder inside it; empty when absent.
  host::IndexPath pathOf(const SimIcon* icon) const;
  // The list view that holds the icon at `path`.
  std::shared_ptr<SimIconListView> listViewAt(const host::IndexPath& path) const;

  const std::string& name() const { return name_; }
  void setName(std::string name) { name_ = std::move(name); }
  const std::vector<std::shared_ptr<SimIconListView>>& lists() const { return lists_; }
  void addList(std::shared_ptr<SimIconListView> list) { lists_.push_back(std::move(list)); }

 private:
  std::string name_;
  std::vector<std::shared_ptr<SimIconListView>> lists_;
};

}  // namespace tessel::sim
