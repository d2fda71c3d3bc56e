#pragma once

namespace tessel::host {

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  Point origin() const { return {x, y}; }
  Size size() const { return {width, height}; }
  Point center() const { return {x + width * 0.5, y + height * 0.5}; }
  double maxY() const { return y + height; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace tessel::host
