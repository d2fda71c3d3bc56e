#include "render/frost_cache.h"

#include <algorithm>

namespace tessel::render {
namespace {

bool samePlan(const BlurPlan& a, const BlurPlan& b) {
  return a.factor == b.factor && std::equal(std::begin(a.radii), std::end(a.radii), std::begin(b.radii));
}

bool sameColor(const host::Color& a, const host::Color& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}

}  // namespace

bool FrostKey::samePlace(const FrostKey& other) const {
  return samePlan(plan, other.plan) && sameColor(tint, other.tint) && sampledX == other.sampledX &&
         sampledY == other.sampledY && shownX == other.shownX && shownY == other.shownY &&
         shownWidth == other.shownWidth && shownHeight == other.shownHeight;
}

bool FrostKey::operator==(const FrostKey& other) const {
  return samePlace(other) && reduced.width == other.reduced.width && reduced.height == other.reduced.height &&
         reduced.factor == other.reduced.factor && reduced.pixels == other.reduced.pixels;
}

cairo_surface_t* FrostCache::find(const FrostKey& key) {
  for (Entry& entry : entries_) {
    if (entry.key == key) {
      entry.lastUse = ++clock_;
      return entry.copy.get();
    }
  }
  return nullptr;
}

cairo_surface_t* FrostCache::store(FrostKey key, Surface copy) {
  auto slot = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.key.samePlace(key); });
  if (slot == entries_.end()) {
    if (entries_.size() < capacity_) {
      entries_.emplace_back();
      slot = entries_.end() - 1;
    } else {
      slot = std::min_element(entries_.begin(), entries_.end(),
                              [](const Entry& a, const Entry& b) { return a.lastUse < b.lastUse; });
    }
  }
  slot->key = std::move(key);
  slot->copy = std::move(copy);
  slot->lastUse = ++clock_;
  return slot->copy.get();
}

}  // namespace tessel::render
