#include "render/sprite_cache.h"

#include <cmath>
#include <map>

#include "render/surface.h"

namespace tessel::render {

void paintCached(cairo_t* cr, const std::string& key, const host::Rect& area, double opacity,
                 const std::function<void(cairo_t*)>& draw) {
  if (!(area.width > 0) || !(area.height > 0) || opacity <= 0) return;
  cairo_matrix_t matrix;
  cairo_get_matrix(cr, &matrix);
  // Views only move and scale, so one factor stands for both directions.
  double scale = matrix.xx;
  double x = area.x, y = area.y;
  cairo_user_to_device(cr, &x, &y);
  // The picture is made for the area's position within a device pixel, to
  // a quarter of a pixel, so that copies line up with what is drawn directly.
  int left = int(std::floor(x)), top = int(std::floor(y));
  double phaseX = std::round((x - left) * 4) / 4, phaseY = std::round((y - top) * 4) / 4;
  int width = int(std::ceil(area.width * scale + phaseX)), height = int(std::ceil(area.height * scale + phaseY));
  if (width <= 0 || height <= 0) return;

  static std::map<std::string, Surface> cache;
  std::string fullKey = key + "@" + std::to_string(width) + "x" + std::to_string(height) + "/" + std::to_string(scale) +
                        "+" + std::to_string(phaseX) + "," + std::to_string(phaseY);
  auto found = cache.find(fullKey);
  if (found == cache.end()) {
    // A bound on what is kept; the next frames make what they need again.
    if (cache.size() >= 1024) cache.clear();
    Surface sprite(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    Context spriteContext(cairo_create(sprite.get()));
    cairo_translate(spriteContext.get(), phaseX, phaseY);
    cairo_scale(spriteContext.get(), scale, scale);
    cairo_translate(spriteContext.get(), -area.x, -area.y);
    draw(spriteContext.get());
    spriteContext.reset();
    cairo_surface_flush(sprite.get());
    found = cache.emplace(fullKey, std::move(sprite)).first;
  }
  cairo_save(cr);
  cairo_identity_matrix(cr);
  cairo_set_source_surface(cr, found->second.get(), left, top);
  cairo_paint_with_alpha(cr, opacity);
  cairo_restore(cr);
}

}  // namespace tessel::render
