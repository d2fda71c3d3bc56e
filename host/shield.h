#pragma once

#include <utility>

namespace tessel::host {

// Everything the host calls in the library passes through here once: a C++
// exception must never unwind into the host's frames.
template <class Work>
void shield(Work&& work) noexcept {
  try {
    std::forward<Work>(work)();
  } catch (...) {
  }
}

}  // namespace tessel::host
