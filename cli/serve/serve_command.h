#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace tessel::cli::serve {

struct ServeOptions {
  std::string scenarioPath;  // empty: the built-in demo's phone
  std::string host = "127.0.0.1";
  int port = 8080;              // 0: any free port
  std::optional<double> scale;  // pixels per point of the frames; 1 when not given
};

// `tessel-sim serve`: runs the phone live behind a local web page until
// SIGINT or SIGTERM, then stops cleanly. Returns the exit status.
int serveCommand(const ServeOptions& options, std::ostream& out, std::ostream& err);

}  // namespace tessel::cli::serve
