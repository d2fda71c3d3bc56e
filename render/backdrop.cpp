#include "render/backdrop.h"

#include <algorithm>
#include <cmath>

#include "render/blur.h"
#include "render/frost_cache.h"
#include "render/surface.h"

namespace tessel::render {
namespace {

struct DeviceBox {
  int x0, y0, x1, y1;
  bool empty() const { return x1 <= x0 || y1 <= y0; }
};

DeviceBox deviceBox(cairo_t* cr, double x0, double y0, double x1, double y1) {
  double xs[4] = {x0, x1, x0, x1};
  double ys[4] = {y0, y0, y1, y1};
  double left = INFINITY, top = INFINITY, right = -INFINITY, bottom = -INFINITY;
  for (int i = 0; i < 4; ++i) {
    cairo_user_to_device(cr, &xs[i], &ys[i]);
    left = std::min(left, xs[i]);
    right = std::max(right, xs[i]);
    top = std::min(top, ys[i]);
    bottom = std::max(bottom, ys[i]);
  }
  return {int(std::floor(left)), int(std::floor(top)), int(std::ceil(right)), int(std::ceil(bottom))};
}

DeviceBox intersect(const DeviceBox& a, const DeviceBox& b) {
  return {std::max(a.x0, b.x0), std::max(a.y0, b.y0), std::min(a.x1, b.x1), std::min(a.y1, b.y1)};
}

// Lays the frost's colour over the blurred copy while it is small: the same
// as tinting the enlarged picture, since enlarging is linear, at a fraction
// of the cost.
void tint(ReducedImage& image, const host::Color& colour) {
  double a = std::clamp(colour.alpha, 0.0, 1.0);
  if (a <= 0) return;
  std::uint32_t keep = std::uint32_t(std::lround((1 - a) * 256));
  std::uint32_t add[4] = {std::uint32_t(std::lround(std::clamp(colour.blue, 0.0, 1.0) * a * 255 * 256)),
                          std::uint32_t(std::lround(std::clamp(colour.green, 0.0, 1.0) * a * 255 * 256)),
                          std::uint32_t(std::lround(std::clamp(colour.red, 0.0, 1.0) * a * 255 * 256)),
                          std::uint32_t(std::lround(a * 255 * 256))};
  for (std::uint32_t& p : image.pixels) {
    std::uint32_t out = 0;
    for (int c = 0; c < 4; ++c) {
      std::uint32_t v = (((p >> (8 * c)) & 255u) * keep + add[c] + 128) >> 8;
      out |= std::min(v, 255u) << (8 * c);
    }
    p = out;
  }
}

// Blurs, tints and enlarges the key's reduced pixels to the shown part's
// size.
Surface enlargedCopy(const FrostKey& key) {
  ReducedImage blurred = key.reduced;
  blurReduced(blurred, key.plan);
  tint(blurred, key.tint);
  // A copy known to be opaque lets the compositor copy it instead of
  // blending it, which for the dimming glass is the whole screen.
  bool opaque =
      std::all_of(blurred.pixels.begin(), blurred.pixels.end(), [](std::uint32_t p) { return (p >> 24) == 255u; });
  Surface copy(
      cairo_image_surface_create(opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32, key.shownWidth, key.shownHeight));
  Context cr(cairo_create(copy.get()));
  setEnlargedSource(cr.get(), blurred, key.sampledX - key.shownX, key.sampledY - key.shownY);
  cairo_set_operator(cr.get(), CAIRO_OPERATOR_SOURCE);
  cairo_paint(cr.get());
  return copy;
}

// Enough for every glass of one picture: the dimming glass, the panel's,
// its arrow's and the dock's.
FrostCache& frostCache() {
  static FrostCache cache(8);
  return cache;
}

}  // namespace

Frost frostForBackdropStyle(std::int64_t style) {
  switch (style) {
    case 1:
      return {12, {0.07, 0.07, 0.09, 0.55}};
    case 2:
      return {6, {0.0, 0.0, 0.02, 0.32}};
    default:
      return {10, {1, 1, 1, 0.3}};
  }
}

Frost lightFrost() { return {10, {0.92, 0.92, 0.96, 0.32}}; }

void paintFrost(cairo_t* cr, LayerStack& layers, const host::Rect& rect, double scale, const Frost& frost,
                double opacity) {
  if (!(rect.width > 0) || !(rect.height > 0) || opacity <= 0) return;
  cairo_surface_t* canvas = layers.canvas();
  DeviceBox picture{0, 0, cairo_image_surface_get_width(canvas), cairo_image_surface_get_height(canvas)};
  double cx0, cy0, cx1, cy1;
  cairo_clip_extents(cr, &cx0, &cy0, &cx1, &cy1);
  DeviceBox shown = intersect(intersect(deviceBox(cr, rect.x, rect.y, rect.x + rect.width, rect.y + rect.height),
                                        deviceBox(cr, cx0, cy0, cx1, cy1)),
                              picture);
  if (shown.empty()) return;

  double sigma = frost.blurPoints * scale;
  BlurPlan plan = planBlur(sigma);
  // What lies just outside the shown part bleeds into its edges.
  int margin = int(std::ceil(2 * sigma));
  DeviceBox sampled = intersect({shown.x0 - margin, shown.y0 - margin, shown.x1 + margin, shown.y1 + margin}, picture);
  PixelRect behind = layers.flattened(sampled.x0, sampled.y0, sampled.x1 - sampled.x0, sampled.y1 - sampled.y0);
  FrostKey key{reduce(behind, plan), plan, frost.tint, sampled.x0, sampled.y0, shown.x0, shown.y0, shown.x1 - shown.x0,
               shown.y1 - shown.y0};
  cairo_surface_t* frosted = frostCache().find(key);
  if (!frosted) {
    Surface made = enlargedCopy(key);
    frosted = frostCache().store(std::move(key), std::move(made));
  }

  cairo_save(cr);
  cairo_rectangle(cr, rect.x, rect.y, rect.width, rect.height);
  cairo_clip(cr);
  // The clip stays where it is; the frosted copy is placed in device pixels.
  cairo_identity_matrix(cr);
  cairo_set_source_surface(cr, frosted, shown.x0, shown.y0);
  cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
  cairo_paint_with_alpha(cr, opacity);
  cairo_restore(cr);
}

}  // namespace tessel::render
