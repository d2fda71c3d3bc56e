#pragma once

#include <utility>

// Code that the host calls (replaced methods, actions, queued blocks,
// animation blocks) must never let an exception reach the host.
namespace tessel {

// Runs `work` now; whatever it throws stops here.
template <class Work>
void shielded(Work&& work) noexcept {
  try {
    std::forward<Work>(work)();
  } catch (...) {
  }
}

// A block for the host to run later (with or without a finished flag),
// shielded the same way.
template <class Work>
auto shieldedBlock(Work work) {
  return [work = std::move(work)](auto... arguments) noexcept {
    try {
      work(arguments...);
    } catch (...) {
    }
  };
}

}  // namespace tessel
