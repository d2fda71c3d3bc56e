#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>

namespace tessel::cli {

// Lines on standard error while a long run goes on, so that a person knows
// it is alive and how far it got: none for a short run, then one every few
// seconds.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;
  Progress(std::ostream& err, std::size_t events, Clock::duration quiet = std::chrono::seconds(3),
           Clock::duration every = std::chrono::seconds(2));
  void update(std::size_t eventsDone, double simulatedTime, int pictures);
  // A last line, when any was printed.
  void finish(std::size_t eventsDone, double simulatedTime, int pictures);

 private:
  void print(std::size_t eventsDone, double simulatedTime, int pictures);

  std::ostream& err_;
  std::size_t events_;
  Clock::time_point started_;
  Clock::time_point next_;
  Clock::duration every_;
  bool printed_ = false;
};

}  // namespace tessel::cli
