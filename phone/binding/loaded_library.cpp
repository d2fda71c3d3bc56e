#include "phone/binding/loaded_library.h"

#include "host/shield.h"
#include "phone/binding/library_objects.h"
#include "phone/binding/phone_host.h"
#include "phone/objc/autorelease_pool.h"

namespace tessel::phone {
namespace {

// Never destroyed: the home screen may call into the library until the
// process is gone, and nothing may run at its exit.
PhoneHost* processHost = nullptr;
Library* processLibrary = nullptr;

}  // namespace

Library* loadedLibrary() noexcept { return processLibrary; }

// The loader runs before the home screen's run loop, with no autorelease
// pool of its own: each step drains its own.
void runFirstLoadStep() noexcept {
  if (processLibrary != nullptr) return;
  objc::AutoreleasePool pool;
  host::shield([] {
    registerLibraryClasses();
    processHost = new PhoneHost();
    processLibrary = new Library(*processHost);
    processLibrary->firstInitialiser();
  });
  libraryReturned();
}

void runSecondLoadStep() noexcept {
  objc::AutoreleasePool pool;
  host::shield([] {
    if (processLibrary != nullptr) processLibrary->secondInitialiser();
  });
  libraryReturned();
}

}  // namespace tessel::phone
