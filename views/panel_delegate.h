#pragma once

namespace tessel {

// What the panel asks of whoever showed it.
class PanelDelegate {
 public:
  virtual ~PanelDelegate() = default;
  // A row was chosen: the panel and its companions go away.
  virtual void dismissPanel() = 0;
};

}  // namespace tessel
