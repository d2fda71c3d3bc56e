#include "cli/serve/stop_signals.h"

#include <pthread.h>

#include <cerrno>
#include <ctime>

namespace tessel::cli::serve {

StopSignals::StopSignals() {
  sigemptyset(&signals_);
  sigaddset(&signals_, SIGINT);
  sigaddset(&signals_, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals_, &previous_);
}

StopSignals::~StopSignals() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }

int StopSignals::wait(const std::function<bool()>& stillWanted) const {
  const timespec pause{0, 200'000'000};
  while (stillWanted()) {
    int signal = sigtimedwait(&signals_, nullptr, &pause);
    if (signal > 0) return signal;
  }
  return 0;
}

}  // namespace tessel::cli::serve
