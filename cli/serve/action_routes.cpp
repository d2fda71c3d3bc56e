#include "cli/serve/action_routes.h"

#include <httplib.h>

#include <string>

#include "cli/serve/json_response.h"
#include "cli/serve/request_body.h"
#include "cli/serve/serve_context.h"
#include "sim/home_screen.h"
#include "sim/sim_host.h"
#include "sim/touch_input.h"
#include "sim/world.h"

namespace tessel::cli::serve {

using nlohmann::json;

namespace {

constexpr std::size_t kMaxIdentifierLength = 200;
constexpr std::size_t kMaxTitleLength = 200;
constexpr std::size_t kMaxMessageLength = 2000;
constexpr double kMaxHold = 60;
constexpr long long kMaxActivationMethod = 4;
constexpr double kMinSpeed = 0.1;
constexpr double kMaxSpeed = 1;

using Action = std::function<void(const RequestBody&, LivePhone&, double arrived)>;

// A POST route whose body is read with `known` fields and whose action runs
// on the phone; answers the phone's time after it.
void post(httplib::Server& server, ServeContext& context, const std::string& path,
          std::initializer_list<std::string_view> known, Action action) {
  std::vector<std::string_view> fields(known);
  server.Post(path, guarded([&context, fields, action](const httplib::Request& request, httplib::Response& response) {
                double arrived = context.live.wallSeconds(WorldClock::Clock::now());
                RequestBody body(request.body, fields);
                double time = context.live.run([&](LivePhone& phone) {
                  action(body, phone, arrived);
                  return phone.world().time();
                });
                sendJson(response, {{"time", time}});
              }));
}

void touch(const RequestBody& body, LivePhone& phone, double arrived) {
  std::string phase = body.text("phase", 16);
  if (phase == "cancel") {
    phone.touchCancel();
    return;
  }
  host::Point point = body.point("point");
  if (phase == "down") {
    phone.touchDown(point, arrived);
  } else if (phase == "move") {
    phone.touchMove(point, arrived);
  } else if (phase == "up") {
    phone.touchUp(point, arrived);
  } else {
    throw BadRequest("phase: expected down, move, up or cancel");
  }
}

void gesture(const RequestBody& body, LivePhone& phone, double) {
  std::string icon = body.text("icon", kMaxIdentifierLength);
  std::string name = body.text("gesture", 32);
  double hold = body.has("hold") ? body.number("hold", 0, kMaxHold) : 1.0;
  if (!sim::isKnownGesture(name))
    throw BadRequest("gesture: expected swipeUp, swipeDown, tap, doubleTap, tripleTap, tapAndHold or hold");
  if (!phone.gesture(icon, name, hold)) throw BadRequest("icon: no icon \"" + icon + "\" on the home screen");
}

void settings(const RequestBody& body, LivePhone& phone, double) {
  if (!body.has("enabled") && !body.has("darkMode") && !body.has("activationMethod"))
    throw BadRequest("expected one or more of enabled, darkMode, activationMethod");
  sim::WorldConfig::Settings settings = phone.currentSettings();
  settings.enabled = body.optionalBoolean("enabled").value_or(settings.enabled);
  settings.darkMode = body.optionalBoolean("darkMode").value_or(settings.darkMode);
  if (body.has("activationMethod"))
    settings.activationMethod = body.integer("activationMethod", 0, kMaxActivationMethod);
  phone.settings(settings);
}

void notify(const RequestBody& body, LivePhone& phone, double) {
  std::string app = body.text("icon", kMaxIdentifierLength);
  std::string title = body.has("title") ? body.text("title", kMaxTitleLength) : "";
  std::string message = body.has("message") ? body.text("message", kMaxMessageLength) : "";
  const sim::HomeScreen* home = phone.world().host().homeScreen();
  if (!home || !home->applicationFor(app)) throw BadRequest("icon: no application \"" + app + "\" on this phone");
  phone.notify(app, title, message);
}

void folder(const RequestBody& body, LivePhone& phone, double) {
  std::string name = body.text("name", kMaxIdentifierLength);
  if (body.boolean("open")) {
    if (!phone.openFolder(name)) throw BadRequest("name: no folder \"" + name + "\" on the home screen");
  } else if (!phone.closeFolder(name)) {
    throw BadRequest("name: the folder \"" + name + "\" is not open");
  }
}

}  // namespace

void addActionRoutes(httplib::Server& server, ServeContext& context) {
  post(server, context, "/api/touch", {"phase", "point"}, touch);
  post(server, context, "/api/gesture", {"icon", "gesture", "hold"}, gesture);
  post(server, context, "/api/tap", {"point"},
       [](const RequestBody& body, LivePhone& phone, double) { phone.tap(body.point("point")); });
  post(server, context, "/api/tapRow", {"row"}, [](const RequestBody& body, LivePhone& phone, double) {
    long long row = body.integer("row", 0, 1'000'000);
    if (!phone.tapRow(row)) throw BadRequest("row: no row " + std::to_string(row) + " in an open panel");
  });
  post(server, context, "/api/settings", {"enabled", "darkMode", "activationMethod"}, settings);
  post(server, context, "/api/keyboard", {"show"},
       [](const RequestBody& body, LivePhone& phone, double) { phone.keyboard(body.boolean("show")); });
  post(server, context, "/api/lock", {"locked"}, [](const RequestBody& body, LivePhone& phone, double) {
    if (body.boolean("locked")) {
      phone.lock();
    } else {
      phone.unlock();
    }
  });
  post(server, context, "/api/home", {"double"}, [](const RequestBody& body, LivePhone& phone, double) {
    if (body.optionalBoolean("double").value_or(false)) {
      phone.doubleHome();
    } else {
      phone.home();
    }
  });
  post(server, context, "/api/notify", {"icon", "title", "message"}, notify);
  post(server, context, "/api/page", {"index"}, [](const RequestBody& body, LivePhone& phone, double) {
    long long index = body.integer("index", 0, 1'000);
    if (!phone.page(static_cast<int>(index))) throw BadRequest("index: no page " + std::to_string(index));
  });
  post(server, context, "/api/folder", {"name", "open"}, folder);

  // The speed is the clock's, not the phone's: it changes no state and is
  // not part of the session.
  server.Post("/api/speed", guarded([&context](const httplib::Request& request, httplib::Response& response) {
                RequestBody body(request.body, {"speed"});
                context.live.setSpeed(body.number("speed", kMinSpeed, kMaxSpeed));
                sendJson(response, {{"speed", context.live.speed()}});
              }));
}

}  // namespace tessel::cli::serve
