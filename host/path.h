#pragma once

#include <vector>

#include "host/geometry.h"
#include "host/object.h"

namespace tessel::host {

// A finished path (`CGPath`): its elements in order.
struct Path {
  enum class Op { moveTo, lineTo, close };
  struct Element {
    Op op = Op::moveTo;
    Point point;
    friend bool operator==(const Element&, const Element&) = default;
  };
  std::vector<Element> elements;
  friend bool operator==(const Path&, const Path&) = default;
};

// `UIBezierPath`.
class BezierPath : public virtual Object {
 public:
  virtual void moveToPoint(const Point& /*p*/) {}
  virtual void addLineToPoint(const Point& /*p*/) {}
  virtual void closePath() {}
  virtual Path CGPath() const { return {}; }
};

}  // namespace tessel::host
