#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/icon_controller.h"
#include "sim/sim_object.h"

namespace tessel::sim {

class HomeScreen;

// `SBIconController`: the home screen's controller.
class SimIconController : public SimObject, public virtual host::IconController {
 public:
  SimIconController(SimHost& host, std::shared_ptr<SimClass> cls, HomeScreen& home)
      : SimObject(host, std::move(cls)), home_(home) {}

  // |host::IconController|
  host::Ref<host::IconModel> model() const override;
  std::vector<host::Ref<host::Application>> allApplications() const override;
  bool isEditing() const override;
  host::Ref<host::IconListView> currentRootIconList() const override;
  host::Ref<host::IconListView> currentFolderIconList() const override;
  host::Ref<host::Object> valueForKeyPath(std::string_view keyPath) const override;
  host::Ref<host::IconListView> getListViewFolderRelativePathForIndexPathCreateIfNecessary(const host::IndexPath& path,
                                                                                           bool create) override;

 private:
  HomeScreen& home_;
};

// The icon model: icons by the identifier of what they show.
class SimIconModel : public SimObject, public virtual host::IconModel {
 public:
  SimIconModel(SimHost& host, std::shared_ptr<SimClass> cls, HomeScreen& home)
      : SimObject(host, std::move(cls)), home_(home) {}

  // |host::IconModel|
  host::Ref<host::Icon> expectedIconForDisplayIdentifier(const host::String& bundleIdentifier) const override;

 private:
  HomeScreen& home_;
};

// `SBIconViewMap` `homescreenMap`: only the home screen's own icon views.
class SimIconViewMap : public SimObject, public virtual host::IconViewMap {
 public:
  SimIconViewMap(SimHost& host, std::shared_ptr<SimClass> cls, HomeScreen& home)
      : SimObject(host, std::move(cls)), home_(home) {}

  // |host::IconViewMap|
  host::Ref<host::IconView> mappedIconViewForIcon(const host::Ref<host::Icon>& icon) const override;

 private:
  HomeScreen& home_;
};

// `SBApplicationController`: the installed applications.
class SimApplicationController : public SimObject, public virtual host::ApplicationController {
 public:
  SimApplicationController(SimHost& host, std::shared_ptr<SimClass> cls, HomeScreen& home)
      : SimObject(host, std::move(cls)), home_(home) {}

  // |host::ApplicationController|
  host::Ref<host::Application> applicationWithBundleIdentifier(const host::String& bundleIdentifier) override;
  std::vector<host::Ref<host::Application>> applicationsWithBundleIdentifier(
      const host::String& bundleIdentifier) override;

 private:
  HomeScreen& home_;
};

}  // namespace tessel::sim
