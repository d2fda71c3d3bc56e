#include "cli/stop_signal.h"

#include <csignal>

namespace tessel::cli {

namespace {

volatile std::sig_atomic_t requested = 0;

extern "C" void onStopSignal(int signal) {
  requested = signal;
  std::signal(signal, SIG_DFL);
}

}  // namespace

void catchStopSignals() {
  std::signal(SIGINT, onStopSignal);
  std::signal(SIGTERM, onStopSignal);
}

int stopSignal() { return requested; }

}  // namespace tessel::cli
