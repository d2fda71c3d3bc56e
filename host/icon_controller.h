#pragma once

#include <vector>

#include "host/icon_view.h"
#include "host/table_view.h"

namespace tessel::host {

// An icon list view: the icons of one page, of the dock or of an open folder.
class IconListView : public virtual View {
 public:
  virtual std::vector<Ref<Icon>> visibleIcons() const { return {}; }
  virtual void setIconsNeedLayout() {}
  virtual void layoutIconsIfNeededDomino(double /*duration*/, bool /*domino*/) {}
};

// A folder of icons; the root folder holds the pages and the dock.
class Folder : public virtual Object {
 public:
  virtual std::vector<Ref<Icon>> allIcons() const { return {}; }
  virtual IndexPath indexPathForIcon(const Ref<Icon>& /*icon*/) const { return {}; }
};

// The icon model (answer of `model`).
class IconModel : public virtual Object {
 public:
  virtual Ref<Icon> expectedIconForDisplayIdentifier(const String& /*bundleIdentifier*/) const { return {}; }
};

// `SBIconViewMap`: icons to the icon views that show them on the home screen.
class IconViewMap : public virtual Object {
 public:
  virtual Ref<IconView> mappedIconViewForIcon(const Ref<Icon>& /*icon*/) const { return {}; }
};

// `SBIconController`: the home screen's icon controller.
class IconController : public virtual Object {
 public:
  virtual Ref<IconModel> model() const { return {}; }
  virtual std::vector<Ref<Application>> allApplications() const { return {}; }
  virtual bool isEditing() const { return false; }
  virtual Ref<IconListView> currentRootIconList() const { return {}; }
  virtual Ref<IconListView> currentFolderIconList() const { return {}; }
  // `valueForKeyPath:`; "rootFolder" answers the root folder.
  virtual Ref<Object> valueForKeyPath(std::string_view /*keyPath*/) const { return {}; }
  // `getListView:folder:relativePath:forIndexPath:createIfNecessary:` with no
  // folder and no relative path asked for: the list view comes back here.
  virtual Ref<IconListView> getListViewFolderRelativePathForIndexPathCreateIfNecessary(const IndexPath& /*path*/,
                                                                                       bool /*create*/) {
    return {};
  }
};

}  // namespace tessel::host
