#include "cli/serve/json_response.h"

#include <httplib.h>

#include "cli/serve/live_world.h"
#include "cli/serve/request_body.h"

namespace tessel::cli::serve {

void sendJson(httplib::Response& response, const nlohmann::json& body, int status) {
  response.status = status;
  response.set_header("Cache-Control", "no-store");
  response.set_content(body.dump(), "application/json");
}

void sendError(httplib::Response& response, int status, const std::string& message) {
  sendJson(response, {{"error", message}}, status);
}

RouteHandler guarded(RouteHandler handler) {
  return [handler = std::move(handler)](const httplib::Request& request, httplib::Response& response) {
    try {
      handler(request, response);
    } catch (const BadRequest& e) {
      sendError(response, 400, e.what());
    } catch (const PhoneStopped& e) {
      sendError(response, 503, e.what());
    } catch (const std::future_error&) {
      sendError(response, 503, "the phone has stopped");
    } catch (const std::exception& e) {
      sendError(response, 500, e.what());
    }
  };
}

}  // namespace tessel::cli::serve
