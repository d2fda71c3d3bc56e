#pragma once

#include "host/icon.h"
#include "host/view.h"

namespace tessel::host {

// `SBIconView`: the view that draws one icon.
class IconView : public virtual View {
 public:
  virtual Ref<Icon> icon() const { return {}; }
  virtual bool isInDock() const { return false; }
  // `initWithDefaultSize` after `alloc`.
  virtual Ref<IconView> initWithDefaultSize() { return {}; }
  virtual void _setIconAnimated(const Ref<Icon>& /*icon*/, bool /*animated*/) {}
  virtual void setDelegate(const Ref<Object>& /*delegate*/) {}
  virtual void setIconLabelAlpha(double /*alpha*/) {}
};

}  // namespace tessel::host
