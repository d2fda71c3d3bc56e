#include "phone/package/loader_filter.h"

namespace tessel::package {

namespace {
constexpr const char* kHomeScreenBundle = "com.apple.springboard";
}

OwnedPlist makeLoaderFilter() {
  plist_t bundles = plist_new_array();
  plist_array_append_item(bundles, plist_new_string(kHomeScreenBundle));
  plist_t filter = plist_new_dict();
  plist_dict_set_item(filter, "Bundles", bundles);
  OwnedPlist root(plist_new_dict());
  plist_dict_set_item(root.get(), "Filter", filter);
  return root;
}

}  // namespace tessel::package
