#include "cli/serve/view_routes.h"

#include <httplib.h>

#include <chrono>
#include <sstream>
#include <string>

#include "cli/serve/json_response.h"
#include "cli/serve/request_body.h"
#include "cli/serve/serve_context.h"
#include "cli/serve/web_assets.h"
#include "sim/home_screen.h"
#include "sim/sim_folder.h"
#include "sim/sim_host.h"
#include "sim/world.h"

namespace tessel::cli::serve {

using nlohmann::json;

namespace {

// How long a viewer's request for a newer frame waits, unless it says
// (`wait=ms`), before it is answered with none (204) and asks again.
constexpr long long kFrameWaitMs = 10'000;
constexpr long long kMaxFrameWaitMs = 30'000;

// The top-level keys of the dump named by `only=a,b,…`, or all of it.
json selectKeys(json dump, const std::string& only) {
  if (only.empty()) return dump;
  json selected = json::object();
  std::stringstream keys(only);
  std::string key;
  while (std::getline(keys, key, ',')) {
    if (!dump.contains(key)) throw BadRequest("only: the state has no \"" + key + "\"");
    selected[key] = std::move(dump[key]);
  }
  return selected;
}

// A whole number from 0 to `max` given as a query parameter.
std::uint64_t wholeNumberParam(const httplib::Request& request, const std::string& name, std::uint64_t max) {
  std::string text = request.get_param_value(name);
  std::uint64_t number = 0;
  std::size_t used = 0;
  try {
    number = std::stoull(text, &used);
  } catch (const std::exception&) {
    used = 0;
  }
  if (text.empty() || used != text.size() || text[0] == '-' || number > max)
    throw BadRequest(name + ": expected a whole number up to " + std::to_string(max));
  return number;
}

// The latest frame, or with `after=N` the first one newer than N (waiting
// for it up to `wait` ms); answers 204 when none came.
using FrameWriter = void (*)(const Frame&, httplib::Response&);
RouteHandler frameRoute(ServeContext& context, FrameWriter write) {
  return guarded([&context, write](const httplib::Request& request, httplib::Response& response) {
    std::shared_ptr<const Frame> frame;
    if (request.has_param("after")) {
      std::uint64_t after = wholeNumberParam(request, "after", UINT64_MAX);
      std::uint64_t waitMs =
          request.has_param("wait") ? wholeNumberParam(request, "wait", kMaxFrameWaitMs) : kFrameWaitMs;
      frame = context.frames.newerThan(after, std::chrono::milliseconds(waitMs));
    } else {
      frame = context.frames.latest();
    }
    response.set_header("Cache-Control", "no-store");
    if (!frame) {
      response.status = 204;
      return;
    }
    response.set_header("X-Frame", std::to_string(frame->number()));
    response.set_header("X-Time", json(frame->time()).dump());
    response.set_header("X-Width", std::to_string(frame->picture().width));
    response.set_header("X-Height", std::to_string(frame->picture().height));
    write(*frame, response);
  });
}

json status(LivePhone& phone) {
  const sim::World& world = phone.world();
  const sim::HomeScreen* home = world.host().homeScreen();
  const auto& settings = phone.currentSettings();
  json apps = json::array();
  json folders = json::array();
  std::size_t pages = 0;
  if (home) {
    for (const auto& app : home->applicationsInOrder())
      apps.push_back({{"id", app->identifier()}, {"name", app->name()}});
    for (const auto& folder : world.config().folders) folders.push_back(folder.name);
    pages = home->pageLists().size();
  }
  return {{"time", world.time()},
          {"screen", {{"width", world.config().screen.width}, {"height", world.config().screen.height}}},
          {"settings",
           {{"enabled", settings.enabled},
            {"darkMode", settings.darkMode},
            {"activationMethod", settings.activationMethod}}},
          {"keyboard", phone.keyboardShown()},
          {"locked", home && home->locked()},
          {"page", home ? home->currentPage() : 0},
          {"pages", pages},
          {"openFolder", home && !home->openFolderName().empty() ? json(home->openFolderName()) : json(nullptr)},
          {"apps", apps},
          {"folders", folders},
          {"events", phone.log().events().size()}};
}

}  // namespace

void addViewRoutes(httplib::Server& server, ServeContext& context) {
  server.Get("/state.json", guarded([&context](const httplib::Request& request, httplib::Response& response) {
               json dump = context.live.run([](LivePhone& phone) { return phone.world().dump(); });
               sendJson(response, selectKeys(std::move(dump), request.get_param_value("only")));
             }));

  server.Get("/api/status", guarded([&context](const httplib::Request&, httplib::Response& response) {
               json body = context.live.run([](LivePhone& phone) { return status(phone); });
               auto frame = context.frames.latest();
               body["speed"] = context.live.speed();
               body["scale"] = context.scale;
               body["frame"] = frame ? frame->number() : 0;
               body["origin"] = context.seed.origin;
               sendJson(response, body);
             }));

  server.Get("/api/scenario", guarded([&context](const httplib::Request&, httplib::Response& response) {
               Json document =
                   context.live.run([&](LivePhone& phone) { return phone.log().scenario(context.seed.document); });
               response.set_header("Content-Disposition", "attachment; filename=\"tessel-session.json\"");
               response.set_header("Cache-Control", "no-store");
               response.set_content(document.dump(2) + "\n", "application/json");
             }));

  server.Get("/frame.png", frameRoute(context, [](const Frame& frame, httplib::Response& response) {
               response.set_content(frame.png(), "image/png");
             }));
  server.Get("/frame.webp", frameRoute(context, [](const Frame& frame, httplib::Response& response) {
               response.set_content(frame.webp(), "image/webp");
             }));
  // Unencoded pixels (RGBA rows, X-Width by X-Height): on this machine a
  // frame costs the page less to take as it is than to decode.
  server.Get("/frame.rgba", frameRoute(context, [](const Frame& frame, httplib::Response& response) {
               const auto& rgba = frame.picture().rgba;
               response.set_content(std::string(rgba.begin(), rgba.end()), "application/octet-stream");
             }));
  // Last, so that the frames above are not taken for files.
  server.Get(R"(/|/[A-Za-z0-9_.-]+\.(html|js|css|svg|png))",
             [](const httplib::Request& request, httplib::Response& response) {
               const WebAsset* asset = findWebAsset(request.path);
               if (!asset) {
                 sendError(response, 404, "no such file: " + request.path);
                 return;
               }
               response.set_header("Cache-Control", "no-cache");
               response.set_content(std::string(asset->bytes), std::string(mimeTypeOf(asset->path)));
             });
}

}  // namespace tessel::cli::serve
