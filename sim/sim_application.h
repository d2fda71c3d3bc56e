#pragma once

#include <string>

#include "host/application.h"
#include "sim/sim_object.h"

namespace tessel::sim {

// `UIApplication` `sharedApplication` of the home-screen process.
class SimApplicationObject : public SimObject, public virtual host::UIApplication {
 public:
  using SimObject::SimObject;

  // |host::UIApplication|
  host::Ref<host::View> keyWindow() const override;
  void launchApplicationWithIdentifierSuspended(const host::String& bundleIdentifier, bool suspended) override;
};

// `UIScreen` `mainScreen`.
class SimScreen : public SimObject, public virtual host::Screen {
 public:
  using SimObject::SimObject;

  // |host::Screen|
  host::Rect bounds() const override;
};

// `NSBundle`: loading one is recorded and always succeeds.
class SimBundle : public SimObject, public virtual host::Bundle {
 public:
  SimBundle(SimHost& host, std::shared_ptr<SimClass> cls, std::string path)
      : SimObject(host, std::move(cls)), path_(std::move(path)) {}

  // |host::Bundle|
  bool load() override;

 private:
  std::string path_;
};

}  // namespace tessel::sim
