#pragma once

namespace tessel::sim {

class SimHost;

// The host's own implementations of the replaceable methods, put into the
// classes' method tables before the library is loaded. The host calls these
// methods only through the tables, so replacements run in their place.
void installOriginalMethods(SimHost& host);

// The messages sent to classes: shared instances, the icon view map,
// `alloc` of the classes the library instantiates.
void installClassOperations(SimHost& host);

}  // namespace tessel::sim
