// Threads, locks and clocks, through the phone's pthread declarations.
// The order of these includes is what is being checked.
// clang-format off
#ifndef TESSEL_HEADERS_REVERSED
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#else
#include <thread>
#include <mutex>
#include <condition_variable>
#include <chrono>
#include <atomic>
#endif
// clang-format on

int threadsInUse(std::mutex& lock, std::atomic<int>& counter) {
  std::lock_guard<std::mutex> held(lock);
  return counter.fetch_add(1) + static_cast<int>(std::chrono::steady_clock::now().time_since_epoch().count() & 1);
}
