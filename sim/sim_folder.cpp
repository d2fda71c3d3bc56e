#include "sim/sim_folder.h"

namespace tessel::sim {

std::vector<host::Ref<host::Icon>> SimFolder::allIcons() const {
  std::vector<host::Ref<host::Icon>> icons;
  for (const auto& list : lists_) {
    for (const auto& icon : list->icons()) icons.emplace_back(icon);
  }
  return icons;
}

host::IndexPath SimFolder::indexPathForIcon(const host::Ref<host::Icon>& icon) const {
  return pathOf(dynamic_cast<const SimIcon*>(icon.get()));
}

host::IndexPath SimFolder::pathOf(const SimIcon* icon) const {
  if (!icon) return {};
  for (std::size_t l = 0; l < lists_.size(); ++l) {
    const auto& icons = lists_[l]->icons();
    for (std::size_t i = 0; i < icons.size(); ++i) {
      auto index = [](std::size_t n) { return static_cast<std::int64_t>(n); };
      if (icons[i].get() == icon) return {{index(l), index(i)}};
      auto inner = icons[i]->folder();
      if (!inner || inner.get() == this) continue;
      host::IndexPath rest = inner->pathOf(icon);
      if (rest.indexes.empty()) continue;
      host::IndexPath path{{index(l), index(i)}};
      path.indexes.insert(path.indexes.end(), rest.indexes.begin(), rest.indexes.end());
      return path;
    }
  }
  return {};
}

std::shared_ptr<SimIconListView> SimFolder::listViewAt(const host::IndexPath& path) const {
  if (path.indexes.size() < 2) return nullptr;
  auto l = path.indexes[0];
  if (l < 0 || static_cast<std::size_t>(l) >= lists_.size()) return nullptr;
  const auto& list = lists_[static_cast<std::size_t>(l)];
  if (path.indexes.size() == 2) return list;
  auto i = path.indexes[1];
  if (i < 0 || static_cast<std::size_t>(i) >= list->icons().size()) return nullptr;
  auto inner = list->icons()[static_cast<std::size_t>(i)]->folder();
  if (!inner) return nullptr;
  return inner->listViewAt(host::IndexPath{{path.indexes.begin() + 2, path.indexes.end()}});
}

}  // namespace tessel::sim
