#pragma once

#include <cairo.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/color.h"
#include "render/blur.h"
#include "render/surface.h"

namespace tessel::render {

// Everything a frosted copy is made from: the reduced pixels behind the
// glass before they are blurred, the blur, the tint, and where the copy is
// read from and laid in device pixels.
struct FrostKey {
  ReducedImage reduced;
  BlurPlan plan;
  host::Color tint;
  int sampledX = 0, sampledY = 0;
  int shownX = 0, shownY = 0, shownWidth = 0, shownHeight = 0;

  // The same glass in the same place, whatever lies behind it now.
  bool samePlace(const FrostKey& other) const;
  bool operator==(const FrostKey& other) const;
};

// Frosted copies, blurred, tinted and enlarged, kept from one picture to the
// next: while only the panel moves, the glass behind it sees the same
// pixels frame after frame. A copy is found only for an equal key, pixels
// included, so a change behind the glass that the blur would show is
// always a miss.
class FrostCache {
 public:
  explicit FrostCache(std::size_t capacity) : capacity_(std::max<std::size_t>(capacity, 1)) {}

  // The copy stored under an equal key, or null.
  cairo_surface_t* find(const FrostKey& key);
  // Keeps `copy` under `key`, in place of the copy of the same glass in the
  // same place if there is one, else of the least recently used.
  cairo_surface_t* store(FrostKey key, Surface copy);
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    FrostKey key;
    Surface copy;
    std::uint64_t lastUse = 0;
  };
  std::size_t capacity_;
  std::uint64_t clock_ = 0;
  std::vector<Entry> entries_;
};

}  // namespace tessel::render
