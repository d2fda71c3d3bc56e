#include "cli/serve/serve_server.h"

#include <httplib.h>
#include <sys/socket.h>

#include <chrono>
#include <csignal>

#include "cli/serve/action_routes.h"
#include "cli/serve/json_response.h"
#include "cli/serve/view_routes.h"

namespace tessel::cli::serve {

namespace {

// No request the page makes comes near this; a larger body is refused (413)
// before it is read.
constexpr std::size_t kMaxBodyBytes = 64 * 1024;
// Enough for a few tabs, each holding a connection open waiting for a frame
// besides the ones it sends touches and reads the state on.
constexpr std::size_t kThreads = 48;
constexpr time_t kKeepAliveSeconds = 2;

sim::WorldConfig phoneConfig(const Seed& seed, const ServeServer::Options& options) {
  sim::WorldConfig config = seed.scenario.world;
  config.fileSystemRoot = options.fileSystemRoot;
  return config;
}

}  // namespace

ServeServer::ServeServer(Seed seed, const Options& options)
    : seed_(std::move(seed)),
      options_(options),
      live_(std::make_unique<LiveWorld>(phoneConfig(seed_, options_), LiveWorld::Options{options_.scale}, frames_)),
      context_(std::make_unique<ServeContext>(ServeContext{*live_, frames_, seed_, options_.scale})),
      http_(std::make_unique<httplib::Server>()) {
  http_->new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
  http_->set_payload_max_length(kMaxBodyBytes);
  http_->set_keep_alive_timeout(kKeepAliveSeconds);
  // Not the library's default, which lets a second server take the same
  // port: one that is taken must be refused.
  http_->set_socket_options([](int socket) {
    int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  });
  http_->set_error_handler([](const httplib::Request& request, httplib::Response& response) {
    if (!response.body.empty()) return;
    if (response.status == 413) {
      sendError(response, 413, "the body is larger than " + std::to_string(kMaxBodyBytes) + " bytes");
    } else if (response.status == 404) {
      sendError(response, 404, "nothing at " + request.method + " " + request.path);
    } else {
      sendError(response, response.status, "refused with status " + std::to_string(response.status));
    }
  });
  addViewRoutes(*http_, *context_);
  addActionRoutes(*http_, *context_);
}

ServeServer::~ServeServer() { stop(); }

int ServeServer::start(const std::string& host, int port) {
  // A viewer that goes away mid-answer must not end the process.
  std::signal(SIGPIPE, SIG_IGN);
  int bound = port == 0 ? http_->bind_to_any_port(host) : (http_->bind_to_port(host, port) ? port : -1);
  if (bound < 0) return -1;
  listening_ = true;
  listener_ = std::thread([this] {
    http_->listen_after_bind();
    listening_ = false;
  });
  // Until the server runs, a stop would not reach it.
  while (listening_ && !http_->is_running()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return bound;
}

void ServeServer::stop() {
  // Viewers waiting for a frame are let go first, so that the server's
  // threads can finish.
  frames_.close();
  if (http_) http_->stop();
  if (listener_.joinable()) listener_.join();
  if (live_) live_->stop();
}

bool ServeServer::running() const { return listening_; }

}  // namespace tessel::cli::serve
