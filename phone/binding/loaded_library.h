#pragma once

#include <type_traits>

#include "hooks/library.h"
#include "phone/binding/bridge.h"

namespace tessel::phone {

// The library as loaded into this process, with the one PhoneHost it runs
// on: made by the first load step and kept until the process ends. Nothing
// before the first load step.
Library* loadedLibrary() noexcept;

// The loader's first step: registers the library's classes, then makes the
// host and the library and runs its first initialiser (settings, hooks).
// Once per process; later calls do nothing.
void runFirstLoadStep() noexcept;
// The loader's second step: the library's second initialiser.
void runSecondLoadStep() noexcept;

// A call from the runtime into the library: nothing it throws gets out, it
// yields zero instead, and the shared state is published as it returns.
template <class Work>
auto callIntoLibrary(Work&& work) noexcept -> std::invoke_result_t<Work&> {
  using Result = std::invoke_result_t<Work&>;
  if constexpr (std::is_void_v<Result>) {
    try {
      work();
    } catch (...) {
    }
    libraryReturned();
  } else {
    Result result{};
    try {
      result = work();
    } catch (...) {
    }
    libraryReturned();
    return result;
  }
}

}  // namespace tessel::phone
