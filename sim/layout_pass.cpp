#include "sim/layout_pass.h"

#include "sim/sim_table_view.h"
#include "sim/sim_view.h"

namespace tessel::sim {

namespace {
constexpr int kMaxRounds = 100;
}  // namespace

void LayoutPass::setNeedsLayout(SimView& view) {
  if (view.needsLayout()) return;
  view.setNeedsLayoutFlag(true);
  views_.push_back(view.self<SimView>());
}

void LayoutPass::tableWantsRows(SimTableView& table) { tables_.push_back(table.self<SimTableView>()); }

void LayoutPass::run() {
  for (int i = 0; i < kMaxRounds && round(); ++i) {
  }
}

bool LayoutPass::round() {
  bool worked = false;
  std::vector<std::weak_ptr<SimView>> waiting;
  auto views = std::move(views_);
  views_.clear();
  for (const auto& weak : views) {
    auto view = weak.lock();
    if (!view || !view->needsLayout()) continue;
    // A view outside any tree waits until it is put into one.
    if (!view->parent() && !view->isInWindow()) {
      waiting.push_back(weak);
      continue;
    }
    view->setNeedsLayoutFlag(false);
    view->layoutSubviewsNow();
    worked = true;
  }
  views_.insert(views_.begin(), waiting.begin(), waiting.end());

  auto tables = std::move(tables_);
  tables_.clear();
  for (const auto& weak : tables) {
    auto table = weak.lock();
    if (!table) continue;
    if (table->isInWindow()) {
      table->loadRows();
      worked = true;
    } else {
      tables_.push_back(weak);
    }
  }
  return worked;
}

}  // namespace tessel::sim
