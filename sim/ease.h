#pragma once

namespace tessel::sim {

// The toolkit's default animation curve, ease-in-ease-out: the cubic Bézier
// (0.42, 0) (0.58, 1). Maps elapsed time as a fraction 0…1 to progress 0…1.
double easeInEaseOut(double fraction);

}  // namespace tessel::sim
