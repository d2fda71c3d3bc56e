#include <algorithm>
#include <unordered_map>
#include <vector>

#include "phone/gnu/runtime/object_lifetime.h"
#include "phone/objc/runtime.h"

namespace {

// The slots that refer weakly to each object.
using WeakSlots = std::unordered_map<id, std::vector<id*>>;

WeakSlots& weakSlots() {
  static auto& slots = *new WeakSlots();
  return slots;
}

void forget(id* slot) {
  if (*slot == nullptr) return;
  auto found = weakSlots().find(*slot);
  if (found != weakSlots().end()) {
    std::erase(found->second, slot);
    if (found->second.empty()) weakSlots().erase(found);
  }
  *slot = nullptr;
}

id remember(id* slot, id object) {
  if (object != nullptr) weakSlots()[object].push_back(slot);
  *slot = object;
  return object;
}

}  // namespace

void tessel::objc::gnu::clearWeakReferencesTo(id object) {
  auto found = weakSlots().find(object);
  if (found == weakSlots().end()) return;
  for (id* slot : found->second) *slot = nullptr;
  weakSlots().erase(found);
}

extern "C" id objc_initWeak(id* slot, id object) { return remember(slot, object); }

extern "C" id objc_storeWeak(id* slot, id object) {
  forget(slot);
  return remember(slot, object);
}

// An object being deallocated has had its weak references cleared already,
// so whatever a slot still holds is alive.
extern "C" id objc_loadWeakRetained(id* slot) { return objc_retain(*slot); }

extern "C" void objc_copyWeak(id* to, id* from) { remember(to, *from); }

extern "C" void objc_destroyWeak(id* slot) { forget(slot); }
