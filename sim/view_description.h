#pragma once

#include <nlohmann/json.hpp>

namespace tessel::sim {

class SimView;

// One view as the dump describes it: class, frame, alpha, tag, superview,
// subviews, its mask, and the fields of its kind (label text, image,
// backdrop style, button actions, table rows, icon and recognizers).
nlohmann::json describeView(const SimView& view);

}  // namespace tessel::sim
