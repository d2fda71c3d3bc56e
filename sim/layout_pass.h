#pragma once

#include <memory>
#include <vector>

namespace tessel::sim {

class SimView;
class SimTableView;

// The toolkit's layout at the end of every turn of the main queue: views
// added to a superview or resized get `layoutSubviews`, and tables that have
// come into the window ask their data source for their rows. Repeats while
// that makes more work, up to a bound.
class LayoutPass {
 public:
  void setNeedsLayout(SimView& view);
  void tableWantsRows(SimTableView& table);
  void run();

 private:
  // One round; false when there was nothing to do.
  bool round();

  std::vector<std::weak_ptr<SimView>> views_;
  std::vector<std::weak_ptr<SimTableView>> tables_;
};

}  // namespace tessel::sim
