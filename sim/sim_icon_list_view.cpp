#include "sim/sim_icon_list_view.h"

#include <algorithm>

#include "sim/sim_animator.h"
#include "sim/sim_host.h"

namespace tessel::sim {

std::vector<host::Ref<host::Icon>> SimIconListView::visibleIcons() const { return {icons_.begin(), icons_.end()}; }

void SimIconListView::setIconsNeedLayout() {
  simHost().recorder().hostCall("setIconsNeedLayout", id(), nlohmann::json::array());
  iconsNeedLayout_ = true;
}

void SimIconListView::layoutIconsIfNeededDomino(double duration, bool domino) {
  simHost().recorder().hostCall("layoutIconsIfNeeded:domino:", id(), {duration, domino});
  iconsNeedLayout_ = false;
  auto keep = self<SimIconListView>();
  // Every icon goes back to its grid place at once; the move is animated.
  simHost().simAnimator().animateWithDuration(duration, [keep] {
    for (const auto& slot : keep->slots_) {
      auto view = slot.view.lock();
      if (view && view->parent() == keep.get()) view->setFrame(slot.place);
    }
  });
}

void SimIconListView::addIcon(const std::shared_ptr<SimIcon>& icon, const std::shared_ptr<SimIconView>& view,
                              const host::Rect& place) {
  icons_.push_back(icon);
  slots_.push_back({view, place});
  view->setFrame(place);
  addChild(view);
}

bool SimIconListView::holds(const SimIcon* icon) const { return indexOf(icon) < icons_.size(); }

std::size_t SimIconListView::indexOf(const SimIcon* icon) const {
  auto found = std::find_if(icons_.begin(), icons_.end(), [&](const auto& i) { return i.get() == icon; });
  return static_cast<std::size_t>(found - icons_.begin());
}

}  // namespace tessel::sim
