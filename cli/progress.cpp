#include "cli/progress.h"

#include <ostream>

#include <fmt/format.h>

namespace tessel::cli {

Progress::Progress(std::ostream& err, std::size_t events, Clock::duration quiet, Clock::duration every)
    : err_(err), events_(events), started_(Clock::now()), next_(started_ + quiet), every_(every) {}

void Progress::update(std::size_t eventsDone, double simulatedTime, int pictures) {
  Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + every_;
  print(eventsDone, simulatedTime, pictures);
}

void Progress::finish(std::size_t eventsDone, double simulatedTime, int pictures) {
  if (printed_) print(eventsDone, simulatedTime, pictures);
}

void Progress::print(std::size_t eventsDone, double simulatedTime, int pictures) {
  printed_ = true;
  double elapsed = std::chrono::duration<double>(Clock::now() - started_).count();
  err_ << fmt::format("tessel-sim: {} of {} events ({:.0f}%), simulated t={:.1f} s, {} picture{} written, {:.0f} s\n",
                      eventsDone, events_, events_ ? 100.0 * double(eventsDone) / double(events_) : 100.0,
                      simulatedTime, pictures, pictures == 1 ? "" : "s", elapsed);
  err_.flush();
}

}  // namespace tessel::cli
