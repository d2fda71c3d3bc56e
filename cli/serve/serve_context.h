#pragma once

#include "cli/serve/frame_store.h"
#include "cli/serve/live_world.h"
#include "cli/serve/seed.h"

namespace tessel::cli::serve {

// What the server's routes share: the phone, its frames and where it came from.
struct ServeContext {
  LiveWorld& live;
  FrameStore& frames;
  const Seed& seed;
  double scale;
};

}  // namespace tessel::cli::serve
