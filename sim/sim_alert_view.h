#pragma once

#include "host/gesture_recognizer.h"
#include "sim/sim_object.h"

namespace tessel::sim {

// `UIAlertView` with a cancel button; showing it is recorded.
class SimAlertView : public SimObject, public virtual host::AlertView {
 public:
  SimAlertView(SimHost& host, std::shared_ptr<SimClass> cls, host::String title, host::String message,
               host::String cancel)
      : SimObject(host, std::move(cls)),
        title_(std::move(title)),
        message_(std::move(message)),
        cancel_(std::move(cancel)) {}

  // |host::AlertView|
  void show() override;

 private:
  host::String title_;
  host::String message_;
  host::String cancel_;
};

}  // namespace tessel::sim
