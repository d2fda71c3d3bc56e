#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/color.h"
#include "host/geometry.h"
#include "host/image.h"
#include "host/layer.h"
#include "host/library_delegates.h"
#include "host/object.h"
#include "host/string.h"

namespace tessel::host {

class GestureRecognizer;

// `UIView`. A view is kept alive by its superview.
class View : public virtual Object {
 public:
  virtual Rect frame() const { return {}; }
  virtual void setFrame(const Rect& /*frame*/) {}
  virtual Rect bounds() const { return {}; }
  virtual Point center() const { return {}; }
  virtual void setCenter(const Point& /*center*/) {}
  virtual double alpha() const { return 0; }
  virtual void setAlpha(double /*alpha*/) {}
  virtual std::int64_t tag() const { return 0; }
  virtual void setTag(std::int64_t /*tag*/) {}

  virtual Ref<View> superview() const { return {}; }
  virtual std::vector<Ref<View>> subviews() const { return {}; }
  virtual void addSubview(const Ref<View>& /*view*/) {}
  virtual void insertSubviewAtIndex(const Ref<View>& /*view*/, std::int64_t /*index*/) {}
  virtual void insertSubviewBelowSubview(const Ref<View>& /*view*/, const Ref<View>& /*sibling*/) {}
  virtual void removeFromSuperview() {}

  virtual Rect convertRectFromView(const Rect& /*rect*/, const Ref<View>& /*view*/) const { return {}; }
  virtual Rect convertRectToView(const Rect& /*rect*/, const Ref<View>& /*view*/) const { return {}; }

  virtual void setBackgroundColor(const Color& /*color*/) {}
  virtual void setClipsToBounds(bool /*clips*/) {}
  virtual void setUserInteractionEnabled(bool /*enabled*/) {}
  virtual bool isOpaque() const { return false; }
  virtual Ref<Layer> layer() const { return {}; }
  virtual void addGestureRecognizer(const Ref<GestureRecognizer>& /*recognizer*/) {}
};

// `UIImageView`.
class ImageView : public virtual View {
 public:
  virtual Ref<Image> image() const { return {}; }
};

// `UIButton`.
class Button : public virtual View {
 public:
  // `addTarget:action:forControlEvents:`; the target is not kept alive.
  virtual void addTargetActionForControlEvents(const Ref<Object>& /*target*/, const ControllerAction& /*action*/,
                                               std::uint64_t /*events*/) {}
};

// `UILabel`.
class Label : public virtual View {
 public:
  virtual void setText(const String& /*text*/) {}
  virtual String text() const { return {}; }
  virtual void setTextColor(const Color& /*color*/) {}
  virtual void setFont(const Font& /*font*/) {}
  virtual void setEnabled(bool /*enabled*/) {}
  virtual void setNumberOfLines(std::int64_t /*lines*/) {}
  virtual void setAdjustsFontSizeToFitWidth(bool /*adjusts*/) {}
};

// `UIScrollView`.
class ScrollView : public virtual View {
 public:
  virtual void setShowsHorizontalScrollIndicator(bool /*shows*/) {}
  virtual void setShowsVerticalScrollIndicator(bool /*shows*/) {}
  virtual void setContentSize(const Size& /*size*/) {}
  virtual void setScrollEnabled(bool /*enabled*/) {}
  virtual void setBounces(bool /*bounces*/) {}
};

// `_UIBackdropViewSettings`: a blur style.
class BackdropSettings : public virtual Object {
 public:
  virtual std::int64_t style() const { return 0; }
};

// `_UIBackdropView`: blurs what lies behind it.
class BackdropView : public virtual View {
 public:
  virtual void setBlurQuality(const String& /*quality*/) {}
};

}  // namespace tessel::host
