#pragma once

namespace httplib {
class Server;
}

namespace tessel::cli::serve {

struct ServeContext;

// What a viewer reads: the page's files, the live state dump, the status of
// the phone, its frames and the session as a scenario.
void addViewRoutes(httplib::Server& server, ServeContext& context);

}  // namespace tessel::cli::serve
