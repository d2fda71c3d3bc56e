#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "cli/serve/frame_store.h"
#include "cli/serve/live_world.h"
#include "cli/serve/seed.h"
#include "cli/serve/serve_context.h"

namespace httplib {
class Server;
}

namespace tessel::cli::serve {

// One live phone made from a scenario, and the web server that shows it and
// takes what a person does to it, answering on a thread pool of its own.
class ServeServer {
 public:
  struct Options {
    double scale = 1;            // pixels per point of the frames
    std::string fileSystemRoot;  // the phone's "/"; empty: a directory of the phone's own
  };

  ServeServer(Seed seed, const Options& options);
  ~ServeServer();
  ServeServer(const ServeServer&) = delete;
  ServeServer& operator=(const ServeServer&) = delete;

  // Binds to `host` and `port` (0: any free port) and starts answering;
  // the port bound, or -1 when it could not bind.
  int start(const std::string& host, int port);
  // Stops answering (waiting for requests under way), then stops the phone.
  void stop();
  bool running() const;

  LiveWorld& live() { return *live_; }

 private:
  Seed seed_;
  Options options_;
  FrameStore frames_;
  std::unique_ptr<LiveWorld> live_;
  std::unique_ptr<ServeContext> context_;
  std::unique_ptr<httplib::Server> http_;
  std::atomic<bool> listening_ = false;
  std::thread listener_;
};

}  // namespace tessel::cli::serve
