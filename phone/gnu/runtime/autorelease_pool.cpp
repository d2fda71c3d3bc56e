#include <cstddef>
#include <cstdint>
#include <vector>

#include "phone/gnu/runtime/object_lifetime.h"
#include "phone/objc/runtime.h"

namespace {

// Every open pool's autoreleased objects, innermost last. A pool's token is
// its depth, counted from one so that no token is null.
struct AutoreleasePools {
  std::vector<id> pending;
  std::vector<std::size_t> starts;
};

AutoreleasePools& pools() {
  static auto& open = *new AutoreleasePools();
  return open;
}

}  // namespace

void tessel::objc::gnu::autoreleaseLater(id object) {
  // As on the phone, an object autoreleased with no pool open is never released.
  if (!pools().starts.empty()) pools().pending.push_back(object);
}

extern "C" void* objc_autoreleasePoolPush(void) {
  pools().starts.push_back(pools().pending.size());
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(pools().starts.size()));
}

// Ends the pool and any still open inside it.
extern "C" void objc_autoreleasePoolPop(void* pool) {
  const auto depth = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(pool));
  if (depth == 0 || depth > pools().starts.size()) return;
  const std::size_t begin = pools().starts[depth - 1];
  // Releasing may autorelease more objects into this pool: drain until empty.
  while (pools().pending.size() > begin) {
    id object = pools().pending.back();
    pools().pending.pop_back();
    objc_release(object);
  }
  pools().starts.resize(depth - 1);
}
