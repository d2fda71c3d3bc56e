#include "render/wallpaper.h"

#include <algorithm>

#include "render/png_file.h"
#include "render/surface.h"

namespace tessel::render {
namespace {

// Reading and converting a large PNG costs more than drawing a frame, and
// a recording draws the same wallpaper many times.
cairo_surface_t* wallpaperImage(const std::string& path) {
  static std::string cachedPath;
  static Surface cached;
  if (path != cachedPath) {
    std::string error;
    auto picture = readPng(path, error);
    cached = picture ? surfaceFromPicture(*picture) : nullptr;
    cachedPath = path;
  }
  return cached.get();
}

void paintGradient(cairo_t* cr, const host::Size& screen) {
  cairo_pattern_t* sky = cairo_pattern_create_linear(0, 0, screen.width * 0.35, screen.height);
  cairo_pattern_add_color_stop_rgb(sky, 0.0, 0.09, 0.11, 0.33);
  cairo_pattern_add_color_stop_rgb(sky, 0.45, 0.42, 0.20, 0.52);
  cairo_pattern_add_color_stop_rgb(sky, 0.78, 0.86, 0.38, 0.45);
  cairo_pattern_add_color_stop_rgb(sky, 1.0, 0.98, 0.66, 0.38);
  cairo_set_source(cr, sky);
  cairo_rectangle(cr, 0, 0, screen.width, screen.height);
  cairo_fill(cr);
  cairo_pattern_destroy(sky);

  // Two soft glows give the blur something to soften.
  struct Glow {
    double x, y, radius, r, g, b, a;
  };
  const Glow glows[] = {
      {0.15, 0.28, 0.75, 0.35, 0.55, 0.95, 0.45},
      {0.92, 0.70, 0.65, 1.00, 0.55, 0.35, 0.40},
  };
  for (const Glow& glow : glows) {
    double cx = glow.x * screen.width, cy = glow.y * screen.height, radius = glow.radius * screen.width;
    cairo_pattern_t* light = cairo_pattern_create_radial(cx, cy, 0, cx, cy, radius);
    cairo_pattern_add_color_stop_rgba(light, 0, glow.r, glow.g, glow.b, glow.a);
    cairo_pattern_add_color_stop_rgba(light, 1, glow.r, glow.g, glow.b, 0);
    cairo_set_source(cr, light);
    cairo_rectangle(cr, 0, 0, screen.width, screen.height);
    cairo_fill(cr);
    cairo_pattern_destroy(light);
  }
}

void paintWallpaper(cairo_t* cr, const host::Size& screen, const std::string& path) {
  cairo_surface_t* image = path.empty() ? nullptr : wallpaperImage(path);
  if (!image) {
    paintGradient(cr, screen);
    return;
  }
  double width = cairo_image_surface_get_width(image);
  double height = cairo_image_surface_get_height(image);
  double scale = std::max(screen.width / width, screen.height / height);
  cairo_rectangle(cr, 0, 0, screen.width, screen.height);
  cairo_clip(cr);
  cairo_translate(cr, (screen.width - width * scale) / 2, (screen.height - height * scale) / 2);
  cairo_scale(cr, scale, scale);
  cairo_set_source_surface(cr, image, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_GOOD);
  cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
  cairo_paint(cr);
}

}  // namespace

cairo_surface_t* wallpaper(const host::Size& screen, const std::string& path, int width, int height) {
  struct Key {
    host::Size screen;
    std::string path;
    int width = 0;
    int height = 0;
    bool operator==(const Key&) const = default;
  };
  static Key cachedKey;
  static Surface cached;
  Key key{screen, path, width, height};
  if (cached && key == cachedKey) return cached.get();
  cached.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(width, 1), std::max(height, 1)));
  cachedKey = key;
  Context cr(cairo_create(cached.get()));
  cairo_set_source_rgb(cr.get(), 0, 0, 0);
  cairo_paint(cr.get());
  if (screen.width > 0 && screen.height > 0) {
    cairo_scale(cr.get(), width / screen.width, height / screen.height);
    paintWallpaper(cr.get(), screen, path);
  }
  return cached.get();
}

}  // namespace tessel::render
