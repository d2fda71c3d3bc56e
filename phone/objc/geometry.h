#pragma once

#include <string_view>

#include "phone/objc/type_encoding.h"

namespace tessel::objc {

// The phone's points, sizes and rectangles, laid out as its toolkit's are: a
// rectangle is four doubles, which arm64 returns in d0-d3.
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
  Point origin;
  Size size;
  friend bool operator==(const Rect&, const Rect&) = default;
};

template <>
struct TypeEncoding<Point> {
  static constexpr std::string_view value = "{CGPoint=dd}";
};

template <>
struct TypeEncoding<Size> {
  static constexpr std::string_view value = "{CGSize=dd}";
};

template <>
struct TypeEncoding<Rect> {
  static constexpr std::string_view value = "{CGRect={CGPoint=dd}{CGSize=dd}}";
};

}  // namespace tessel::objc
