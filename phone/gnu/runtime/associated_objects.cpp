#include <unordered_map>
#include <utility>

#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace {

struct Association {
  id value = nullptr;
  bool owned = false;
};

using Associations = std::unordered_map<id, std::unordered_map<const void*, Association>>;

Associations& associations() {
  static auto& table = *new Associations();
  return table;
}

bool retains(objc_AssociationPolicy policy) { return policy != OBJC_ASSOCIATION_ASSIGN; }
bool copies(objc_AssociationPolicy policy) {
  return policy == OBJC_ASSOCIATION_COPY || policy == OBJC_ASSOCIATION_COPY_NONATOMIC;
}

void releaseIfOwned(const Association& association) {
  if (association.owned) objc_release(association.value);
}

}  // namespace

extern "C" void objc_setAssociatedObject(id object, const void* key, id value, objc_AssociationPolicy policy) {
  using tessel::objc::selector;
  using tessel::objc::send;
  if (object == nullptr) return;
  // Messages first, then the table: a message may reach the table itself.
  id kept = value;
  if (value != nullptr && copies(policy)) {
    kept = send<id>(value, selector<"copy">());
  } else if (value != nullptr && retains(policy)) {
    kept = objc_retain(value);
  }
  const Association added{kept, retains(policy)};

  Association replaced;
  auto& ofObject = associations()[object];
  if (auto found = ofObject.find(key); found != ofObject.end()) {
    replaced = found->second;
    ofObject.erase(found);
  }
  if (added.value != nullptr) ofObject[key] = added;
  if (ofObject.empty()) associations().erase(object);
  // Last: releasing the old value may deallocate objects that reach this table.
  releaseIfOwned(replaced);
}

extern "C" id objc_getAssociatedObject(id object, const void* key) {
  auto ofObject = associations().find(object);
  if (ofObject == associations().end()) return nullptr;
  auto found = ofObject->second.find(key);
  return found == ofObject->second.end() ? nullptr : found->second.value;
}

extern "C" void objc_removeAssociatedObjects(id object) {
  auto ofObject = associations().find(object);
  if (ofObject == associations().end()) return;
  auto removed = std::move(ofObject->second);
  associations().erase(ofObject);
  for (const auto& [key, association] : removed) releaseIfOwned(association);
}
