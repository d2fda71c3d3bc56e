#pragma once

#include "phone/package/owned_plist.h"

namespace tessel::package {

// The loader's filter: inject the library into the home-screen application
// and nowhere else.
OwnedPlist makeLoaderFilter();

}  // namespace tessel::package
