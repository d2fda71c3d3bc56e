#pragma once

#include <memory>
#include <vector>

#include "host/icon_controller.h"
#include "sim/sim_icon_view.h"
#include "sim/sim_view.h"

namespace tessel::sim {

// `SBIconListView`: the icons of one page, of the dock or of a folder, each
// shown by an icon view at its place on the list's grid.
class SimIconListView : public SimView, public virtual host::IconListView {
 public:
  using SimView::SimView;

  // |host::IconListView|
  std::vector<host::Ref<host::Icon>> visibleIcons() const override;
  void setIconsNeedLayout() override;
  void layoutIconsIfNeededDomino(double duration, bool domino) override;

  // Puts an icon on the list, its view (a subview) at `place`.
  void addIcon(const std::shared_ptr<SimIcon>& icon, const std::shared_ptr<SimIconView>& view, const host::Rect& place);
  const std::vector<std::shared_ptr<SimIcon>>& icons() const { return icons_; }
  bool holds(const SimIcon* icon) const;
  std::size_t indexOf(const SimIcon* icon) const;
  bool iconsNeedLayout() const { return iconsNeedLayout_; }

 private:
  struct Slot {
    std::weak_ptr<SimIconView> view;
    host::Rect place;
  };
  std::vector<std::shared_ptr<SimIcon>> icons_;
  std::vector<Slot> slots_;
  bool iconsNeedLayout_ = false;
};

}  // namespace tessel::sim
