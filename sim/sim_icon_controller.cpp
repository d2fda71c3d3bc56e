#include "sim/sim_icon_controller.h"

#include "sim/home_screen.h"
#include "sim/sim_host.h"

namespace tessel::sim {

host::Ref<host::IconModel> SimIconController::model() const { return host::Ref<host::IconModel>(home_.model()); }

std::vector<host::Ref<host::Application>> SimIconController::allApplications() const {
  auto apps = home_.applicationsInOrder();
  return {apps.begin(), apps.end()};
}

bool SimIconController::isEditing() const { return home_.editing(); }

host::Ref<host::IconListView> SimIconController::currentRootIconList() const {
  return host::Ref<host::IconListView>(home_.currentPageList());
}

host::Ref<host::IconListView> SimIconController::currentFolderIconList() const {
  return host::Ref<host::IconListView>(home_.openFolderList());
}

host::Ref<host::Object> SimIconController::valueForKeyPath(std::string_view keyPath) const {
  if (keyPath == "rootFolder") return host::Ref<host::Object>(home_.rootFolder());
  return {};
}

host::Ref<host::IconListView> SimIconController::getListViewFolderRelativePathForIndexPathCreateIfNecessary(
    const host::IndexPath& path, bool create) {
  auto list = home_.rootFolder() ? home_.rootFolder()->listViewAt(path) : nullptr;
  simHost().recorder().hostCall("getListView:folder:relativePath:forIndexPath:createIfNecessary:", id(),
                                {path.indexes, create, list ? nlohmann::json(list->id()) : nlohmann::json(nullptr)});
  return host::Ref<host::IconListView>(list);
}

host::Ref<host::Icon> SimIconModel::expectedIconForDisplayIdentifier(const host::String& bundleIdentifier) const {
  if (!bundleIdentifier) return {};
  return host::Ref<host::Icon>(home_.iconFor(*bundleIdentifier));
}

host::Ref<host::IconView> SimIconViewMap::mappedIconViewForIcon(const host::Ref<host::Icon>& icon) const {
  return host::Ref<host::IconView>(home_.iconViewFor(dynamic_cast<const SimIcon*>(icon.get())));
}

host::Ref<host::Application> SimApplicationController::applicationWithBundleIdentifier(
    const host::String& bundleIdentifier) {
  if (!bundleIdentifier) return {};
  return host::Ref<host::Application>(home_.applicationFor(*bundleIdentifier));
}

std::vector<host::Ref<host::Application>> SimApplicationController::applicationsWithBundleIdentifier(
    const host::String& bundleIdentifier) {
  auto application = applicationWithBundleIdentifier(bundleIdentifier);
  if (!application) return {};
  return {application};
}

}  // namespace tessel::sim
