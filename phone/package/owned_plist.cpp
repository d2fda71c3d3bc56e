#include "phone/package/owned_plist.h"

namespace tessel::package {

std::string toXml(const OwnedPlist& tree) {
  char* xml = nullptr;
  uint32_t length = 0;
  plist_to_xml(tree.get(), &xml, &length);
  std::string text(xml, length);
  plist_to_xml_free(xml);
  return text;
}

}  // namespace tessel::package
