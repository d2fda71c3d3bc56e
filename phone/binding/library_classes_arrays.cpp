#include "phone/binding/exported_state.h"
#include "phone/binding/library_objects.h"

namespace tessel::phone {

id autoreleasedArrayOf(const std::vector<id>& objects) {
  std::vector<const void*> values(objects.begin(), objects.end());
  CFArrayRef array = CFArrayCreate(nullptr, values.data(), static_cast<CFIndex>(values.size()), &kCFTypeArrayCallBacks);
  return objc_autorelease(reinterpret_cast<id>(const_cast<__CFArray*>(array)));
}

}  // namespace tessel::phone
