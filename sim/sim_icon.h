#pragma once

#include <memory>
#include <string>

#include "host/icon.h"
#include "sim/sim_image.h"
#include "sim/sim_object.h"

namespace tessel::sim {

class SimFolder;

// `SBApplication`: an installed application.
class SimApplication : public SimObject, public virtual host::Application {
 public:
  SimApplication(SimHost& host, std::shared_ptr<SimClass> cls, std::string bundleIdentifier, std::string name,
                 host::Color color)
      : SimObject(host, std::move(cls)),
        bundleIdentifier_(std::move(bundleIdentifier)),
        name_(std::move(name)),
        color_(color) {}

  // |host::Application|
  host::String bundleIdentifier() const override { return bundleIdentifier_; }

  const std::string& identifier() const { return bundleIdentifier_; }
  const std::string& name() const { return name_; }
  const host::Color& color() const { return color_; }

 private:
  std::string bundleIdentifier_;
  std::string name_;
  host::Color color_;
};

// An icon of any kind; its kind is its class. Application and newsstand
// icons show an application, a web clip has only an identifier, a folder
// icon stands for a folder.
class SimIcon : public SimObject, public virtual host::Icon {
 public:
  using SimObject::SimObject;

  // |host::Icon|
  host::Ref<host::Application> application() const override;
  host::Ref<host::Icon> initWithApplication(const host::Ref<host::Application>& application) override;

  const std::shared_ptr<SimApplication>& app() const { return application_; }
  void setApp(std::shared_ptr<SimApplication> application) { application_ = std::move(application); }
  // What launching or finding this icon goes by: the application's bundle
  // identifier, a web clip's identifier or a folder's name.
  const std::string& displayIdentifier() const { return displayIdentifier_; }
  void setDisplayIdentifier(std::string identifier) { displayIdentifier_ = std::move(identifier); }
  const std::string& displayName() const { return displayName_; }
  void setDisplayName(std::string name) { displayName_ = std::move(name); }
  // The picture on the icon: a PNG given by the scenario, or a generated one.
  const std::shared_ptr<SimImage>& image() const { return image_; }
  void setImage(std::shared_ptr<SimImage> image) { image_ = std::move(image); }
  std::shared_ptr<SimFolder> folder() const { return folder_.lock(); }
  void setFolder(const std::shared_ptr<SimFolder>& folder) { folder_ = folder; }

  // `launchFromLocation:` through the method table, so replacements run.
  void launchFromLocation(std::int64_t location);

 private:
  std::shared_ptr<SimApplication> application_;
  std::string displayIdentifier_;
  std::string displayName_;
  std::shared_ptr<SimImage> image_;
  std::weak_ptr<SimFolder> folder_;
};

}  // namespace tessel::sim
