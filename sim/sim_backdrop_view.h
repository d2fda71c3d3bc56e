#pragma once

#include <cstdint>
#include <string>

#include "sim/sim_view.h"

namespace tessel::sim {

// `_UIBackdropViewSettings`: a blur style.
class SimBackdropSettings : public SimObject, public virtual host::BackdropSettings {
 public:
  SimBackdropSettings(SimHost& host, std::shared_ptr<SimClass> cls, std::int64_t style)
      : SimObject(host, std::move(cls)), style_(style) {}

  // |host::BackdropSettings|
  std::int64_t style() const override { return style_; }

 private:
  std::int64_t style_;
};

// `_UIBackdropView`: blurs what lies behind it. One that autosizes takes
// its superview's bounds when it is put into it.
class SimBackdropView : public SimView, public virtual host::BackdropView {
 public:
  SimBackdropView(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame, bool autosizes,
                  std::int64_t style)
      : SimView(host, std::move(cls), frame), autosizes_(autosizes), style_(style) {}

  // |host::BackdropView|
  void setBlurQuality(const host::String& quality) override { blurQuality_ = quality; }

  std::int64_t style() const { return style_; }
  const host::String& blurQuality() const { return blurQuality_; }
  bool autosizes() const { return autosizes_; }

 protected:
  void didMoveToSuperview() override {
    if (autosizes_ && parent()) setFrame(parent()->bounds());
  }

 private:
  bool autosizes_;
  std::int64_t style_;
  host::String blurQuality_;
};

}  // namespace tessel::sim
