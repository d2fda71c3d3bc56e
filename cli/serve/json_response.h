#pragma once

#include <functional>
#include <string>

#include <nlohmann/json.hpp>

namespace httplib {
struct Request;
struct Response;
}  // namespace httplib

namespace tessel::cli::serve {

void sendJson(httplib::Response& response, const nlohmann::json& body, int status = 200);
// {"error": message}
void sendError(httplib::Response& response, int status, const std::string& message);

using RouteHandler = std::function<void(const httplib::Request&, httplib::Response&)>;

// The handler, answering a BadRequest it throws with 400 and its reason, a
// stopped phone with 503, and anything else with 500; the phone goes on.
RouteHandler guarded(RouteHandler handler);

}  // namespace tessel::cli::serve
