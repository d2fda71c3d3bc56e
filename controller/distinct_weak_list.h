#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "host/object.h"

namespace tessel {

// An ordered list of host objects, each held at most once and none kept
// alive, whose membership test costs the same at ten entries as at
// thousands: the host's identity of each object maps to its place. An object
// the host has freed is no longer held, even when a new object comes to
// have its identity.
template <class T>
class DistinctWeakList {
 public:
  using const_iterator = typename std::vector<host::Weak<T>>::const_iterator;

  bool contains(const host::Ref<T>& object) const {
    const void* identity = host::identityOf(object);
    if (!identity) return containsNothing();
    auto found = places_.find(identity);
    return found != places_.end() && entries_[found->second].lock() == object;
  }
  // Appends `object` unless the list holds it already.
  void insert(const host::Ref<T>& object) {
    if (contains(object)) return;
    if (const void* identity = host::identityOf(object)) places_[identity] = entries_.size();
    entries_.push_back(object);
  }
  void clear() {
    entries_.clear();
    places_.clear();
  }

  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }
  const host::Weak<T>& operator[](std::size_t index) const { return entries_[index]; }
  const_iterator begin() const { return entries_.begin(); }
  const_iterator end() const { return entries_.end(); }

 private:
  // Nothing equals an entry whose object is gone, as the platform's
  // collection would compare them.
  bool containsNothing() const {
    for (const auto& entry : entries_) {
      if (!entry.lock()) return true;
    }
    return false;
  }

  std::vector<host::Weak<T>> entries_;
  std::unordered_map<const void*, std::size_t> places_;
};

}  // namespace tessel
