#include "hooks/library.h"

// Until the phone binding gives the process its entry, the dylib exports the
// library's loader, which also keeps the library in the image past
// dead-stripping. The loaded library stays the caller's.
extern "C" __attribute__((visibility("default"))) tessel::Library* TesselLiteLoadLibrary(
    tessel::host::Host* host) noexcept {
  if (host == nullptr) return nullptr;
  try {
    return tessel::Library::load(*host).release();
  } catch (...) {
    return nullptr;
  }
}
