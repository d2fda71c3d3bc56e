#pragma once

#include "host/layer.h"
#include "host/path.h"

namespace tessel::sim {

// A view's backing layer, or a free-standing one. Rendering a layer into an
// image context draws nothing here.
class SimLayer : public virtual host::Layer {
 public:
  // |host::Layer|
  void setFrame(const host::Rect& frame) override { frame_ = frame; }
  host::Rect frame() const override { return frame_; }
  void setMask(const host::Ref<host::Layer>& mask) override { mask_ = mask; }
  host::Ref<host::Layer> mask() const override { return mask_; }

 private:
  host::Rect frame_;
  host::Ref<host::Layer> mask_;
};

// `CAShapeLayer`: as a mask it lets through the inside of its path.
class SimShapeLayer : public SimLayer, public virtual host::ShapeLayer {
 public:
  // |host::ShapeLayer|
  void setPath(const host::Path& path) override { path_ = path; }
  host::Path path() const override { return path_; }

 private:
  host::Path path_;
};

// `UIBezierPath`: collects its elements.
class SimBezierPath : public host::BezierPath {
 public:
  // |host::BezierPath|
  void moveToPoint(const host::Point& p) override { path_.elements.push_back({host::Path::Op::moveTo, p}); }
  void addLineToPoint(const host::Point& p) override { path_.elements.push_back({host::Path::Op::lineTo, p}); }
  void closePath() override { path_.elements.push_back({host::Path::Op::close, {}}); }
  host::Path CGPath() const override { return path_; }

 private:
  host::Path path_;
};

}  // namespace tessel::sim
