#include "cli/serve/serve_command.h"

#include <ostream>

#include <fmt/format.h>

#include "cli/runner.h"
#include "cli/scratch_directory.h"
#include "cli/serve/seed.h"
#include "cli/serve/serve_server.h"
#include "cli/serve/stop_signals.h"

namespace tessel::cli::serve {

namespace {

std::string urlOf(const std::string& host, int port) {
  bool ipv6 = host.find(':') != std::string::npos;
  return fmt::format("http://{}:{}/", ipv6 ? "[" + host + "]" : host, port);
}

}  // namespace

int serveCommand(const ServeOptions& options, std::ostream& out, std::ostream& err) {
  auto seed = loadSeed(options.scenarioPath, err);
  if (!seed) return kExitInvalid;
  double scale = options.scale.value_or(1);
  if (auto problem = pictureSizeProblem(seed->scenario.world.screen, scale)) {
    err << "--scale: " << *problem << "\n";
    return kExitInvalid;
  }
  std::string origin = seed->origin;
  std::size_t events = seed->scenario.events.size();

  // Before any thread starts, so that none of them takes the signals.
  StopSignals stopSignals;
  ScratchDirectory phoneFiles("tessel-serve");
  if (phoneFiles.path().empty()) {
    err << "cannot make a scratch directory for the phone's files\n";
    return kExitInvalid;
  }
  ServeServer server(std::move(*seed), {scale, phoneFiles.path()});
  int port = server.start(options.host, options.port);
  if (port < 0) {
    err << fmt::format("cannot listen on {} port {}\n", options.host, options.port);
    return kExitInvalid;
  }
  out << fmt::format("tessel-sim serve: the phone of {} at {} (Ctrl-C stops)\n", origin, urlOf(options.host, port));
  if (events > 0)
    out << fmt::format("its {} events are not played: the phone starts as the scenario makes it\n", events);
  out << "the phone's files are in " << phoneFiles.path() << " until it stops\n" << std::flush;

  int signal = stopSignals.wait([&] { return server.running(); });
  server.stop();
  if (signal == 0) {
    err << "the web server stopped by itself\n";
    return kExitInvalid;
  }
  out << "tessel-sim serve: stopped (" << (signal == SIGINT ? "SIGINT" : "SIGTERM") << ")\n" << std::flush;
  return kExitOk;
}

}  // namespace tessel::cli::serve
