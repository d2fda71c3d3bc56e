#pragma once

namespace tessel::host {

// A toolkit colour: components in the toolkit's double precision.
struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 0;

  static Color colorWithRedGreenBlueAlpha(double r, double g, double b, double a) { return {r, g, b, a}; }
  static Color whiteColor() { return {1, 1, 1, 1}; }
  static Color blackColor() { return {0, 0, 0, 1}; }
  static Color grayColor() { return {0.5, 0.5, 0.5, 1}; }
  static Color clearColor() { return {0, 0, 0, 0}; }
  friend bool operator==(const Color&, const Color&) = default;
};

struct Font {
  double pointSize = 0;
  static Font systemFontOfSize(double size) { return {size}; }
  friend bool operator==(const Font&, const Font&) = default;
};

}  // namespace tessel::host
