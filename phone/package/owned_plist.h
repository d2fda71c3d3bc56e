#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include <plist/plist.h>

namespace tessel::package {

// A property-list tree that frees itself; a node handed to a container
// belongs to the container, so release() it first.
struct PlistDeleter {
  void operator()(void* node) const { plist_free(static_cast<plist_t>(node)); }
};
using OwnedPlist = std::unique_ptr<std::remove_pointer_t<plist_t>, PlistDeleter>;

// The tree as an XML property list; the same tree always gives the same text.
std::string toXml(const OwnedPlist& tree);

}  // namespace tessel::package
