#include "sim/ease.h"

namespace tessel::sim {

namespace {

// One coordinate of the curve with control values a and b at parameter s.
double bezier(double a, double b, double s) {
  double r = 1 - s;
  return 3 * r * r * s * a + 3 * r * s * s * b + s * s * s;
}

}  // namespace

double easeInEaseOut(double fraction) {
  if (fraction <= 0) return 0;
  if (fraction >= 1) return 1;
  // x(s) rises monotonically, so bisection finds the parameter of `fraction`.
  double low = 0;
  double high = 1;
  for (int i = 0; i < 60; ++i) {
    double mid = (low + high) / 2;
    (bezier(0.42, 0.58, mid) < fraction ? low : high) = mid;
  }
  return bezier(0, 1, (low + high) / 2);
}

}  // namespace tessel::sim
