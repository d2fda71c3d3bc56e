#pragma once

#include <csignal>
#include <functional>

namespace tessel::cli::serve {

// SIGINT and SIGTERM, held back from every thread started while this lives
// (they inherit the mask), so that one thread alone takes them by waiting.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  // Waits for one of the signals and returns it; returns 0 as soon as
  // `stillWanted` answers false (it is asked a few times a second).
  int wait(const std::function<bool()>& stillWanted) const;

 private:
  sigset_t signals_;
  sigset_t previous_;
};

}  // namespace tessel::cli::serve
