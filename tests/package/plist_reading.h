#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <plist/plist.h>

namespace tessel::package_test {

struct PlistFree {
  void operator()(void* node) const { plist_free(static_cast<plist_t>(node)); }
};
using ParsedPlist = std::unique_ptr<std::remove_pointer_t<plist_t>, PlistFree>;

// Null unless `text` is an XML property list.
inline ParsedPlist parseXmlPlist(const std::string& text) {
  plist_t root = nullptr;
  plist_from_xml(text.data(), static_cast<uint32_t>(text.size()), &root);
  return ParsedPlist(root);
}

inline plist_t at(plist_t dict, const char* key) {
  return plist_get_node_type(dict) == PLIST_DICT ? plist_dict_get_item(dict, key) : nullptr;
}

inline plist_t at(plist_t array, uint32_t index) {
  return plist_get_node_type(array) == PLIST_ARRAY ? plist_array_get_item(array, index) : nullptr;
}

inline uint32_t countOf(plist_t node) {
  if (plist_get_node_type(node) == PLIST_ARRAY) return plist_array_get_size(node);
  if (plist_get_node_type(node) == PLIST_DICT) return plist_dict_get_size(node);
  return 0;
}

// "<not a string>" for anything else, so a comparison with a real text fails.
inline std::string stringOf(plist_t node) {
  if (plist_get_node_type(node) != PLIST_STRING) return "<not a string>";
  uint64_t length = 0;
  const char* text = plist_get_string_ptr(node, &length);
  return std::string(text, length);
}

inline std::vector<std::string> stringsOf(plist_t array) {
  std::vector<std::string> strings;
  for (uint32_t i = 0; i < countOf(array); ++i) strings.push_back(stringOf(at(array, i)));
  return strings;
}

}  // namespace tessel::package_test
