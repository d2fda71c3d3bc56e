#pragma once

namespace httplib {
class Server;
}

namespace tessel::cli::serve {

struct ServeContext;

// What a person does to the phone: touches, gestures, the controls beside
// the screen. Each takes a JSON object and answers {"time": t}, the phone's
// time when it was done.
void addActionRoutes(httplib::Server& server, ServeContext& context);

}  // namespace tessel::cli::serve
