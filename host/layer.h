#pragma once

#include "host/geometry.h"
#include "host/object.h"
#include "host/path.h"

namespace tessel::host {

class ImageContext;

// A view's backing layer.
class Layer : public virtual Object {
 public:
  virtual void setFrame(const Rect& /*frame*/) {}
  virtual Rect frame() const { return {}; }
  virtual void setMask(const Ref<Layer>& /*mask*/) {}
  virtual Ref<Layer> mask() const { return {}; }
  virtual void renderInContext(const Ref<ImageContext>& /*context*/) {}
};

// `CAShapeLayer`: used as a mask, it lets through only the inside of its path.
class ShapeLayer : public virtual Layer {
 public:
  virtual void setPath(const Path& /*path*/) {}
  virtual Path path() const { return {}; }
};

}  // namespace tessel::host
