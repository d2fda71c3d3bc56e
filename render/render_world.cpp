#include <cmath>

#include "render/alert_card.h"
#include "render/keyboard.h"
#include "render/layer_stack.h"
#include "render/render.h"
#include "render/status_bar.h"
#include "render/surface.h"
#include "render/text.h"
#include "render/view_painter.h"
#include "render/wallpaper.h"
#include "sim/home_screen.h"
#include "sim/sim_host.h"
#include "sim/sim_view.h"
#include "sim/world.h"

namespace tessel::render {
namespace {

std::string textOf(const nlohmann::json& value) { return value.is_string() ? value.get<std::string>() : ""; }

}  // namespace

Picture renderWorld(const sim::World& world, double scale) {
  const sim::SimHost& host = world.host();
  const sim::WorldConfig& config = world.config();
  host::Size screen{config.screen.width, config.screen.height};
  int width = int(std::lround(screen.width * scale));
  int height = int(std::lround(screen.height * scale));
  if (width <= 0 || height <= 0 || !(scale > 0)) return {};

  const sim::HomeScreen* home = host.homeScreen();
  std::string wallpaperPath = home && !home->wallpaperPath().empty() ? home->wallpaperPath() : config.wallpaperPath;
  // Drawn straight into the picture's bytes, which are then turned to RGBA
  // where they lie: a second screen-sized buffer would double the memory
  // the conversion streams through.
  Picture picture{width, height, {}};
  Surface surface = surfaceOverPicture(picture);
  if (!surface) return {};
  cairo_surface_t* canvas = surface.get();
  cairo_surface_t* wall = wallpaper(screen, wallpaperPath, width, height);
  // The picture's bytes start unset: without a wallpaper to cover them
  // there is nothing to show.
  if (cairo_surface_status(wall) != CAIRO_STATUS_SUCCESS) return {};
  Context context(cairo_create(canvas));
  cairo_t* cr = context.get();

  cairo_set_source_surface(cr, wall, 0, 0);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_paint(cr);
  cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
  cairo_scale(cr, scale, scale);

  TextPainter text(cr);
  LayerStack layers(cr, canvas);
  ViewPainter painter(cr, layers, text, {world.time(), scale, &config, home});
  if (const auto& window = host.window()) painter.paint(*window);
  if (const auto& keyboard = host.keyboardFrame()) paintKeyboard(cr, *keyboard);
  paintStatusBar(cr, text, screen);

  // An alert stays up once shown: nothing in this phone dismisses one.
  const auto& alerts = host.recorder().alerts();
  if (!alerts.empty()) {
    const nlohmann::json& alert = alerts.back();
    paintAlert(cr, text, screen,
               {textOf(alert.value("title", nlohmann::json())), textOf(alert.value("message", nlohmann::json())),
                textOf(alert.value("cancel", nlohmann::json()))});
  }
  context.reset();
  cairo_surface_finish(canvas);
  surface.reset();
  straightenInPlace(picture);
  return picture;
}

}  // namespace tessel::render
