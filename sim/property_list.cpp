#include "sim/property_list.h"

#include <plist/plist.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

namespace tessel::sim {

namespace {

// Frees a libplist tree when it goes out of scope.
struct PlistTree {
  plist_t node = nullptr;
  ~PlistTree() {
    if (node) plist_free(node);
  }
};

std::shared_ptr<host::Value> valueOf(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t b = 0;
      plist_get_bool_val(node, &b);
      return std::make_shared<SimValue>(b != 0);
    }
    case PLIST_UINT: {
      std::uint64_t v = 0;
      plist_get_uint_val(node, &v);
      // Integers are stored as 64 bits; negative ones come back as their two's complement.
      return std::make_shared<SimValue>(static_cast<std::int64_t>(v));
    }
    case PLIST_REAL: {
      double v = 0;
      plist_get_real_val(node, &v);
      return std::make_shared<SimValue>(v);
    }
    case PLIST_STRING: {
      // Read with its length: a string may hold a NUL byte, which the
      // library's own reader would stop on with an assertion.
      std::uint64_t length = 0;
      const char* text = plist_get_string_ptr(node, &length);
      return std::make_shared<SimValue>(text ? std::string(text, length) : std::string());
    }
    default:
      return std::make_shared<SimValue>(SimValue::Opaque{});
  }
}

// A dictionary item's key. libplist's own key reader stops the process with
// an assertion on a key that holds a NUL (a binary file's UTF-16 key may), so
// the key is written out as a string of its own and read back: like every
// other key, it then ends at its first NUL.
std::optional<std::string> keyOf(plist_t item) {
  char* bytes = nullptr;
  std::uint32_t size = 0;
  plist_to_bin(plist_dict_item_get_key(item), &bytes, &size);
  if (!bytes) return std::nullopt;
  PlistTree key;
  plist_from_bin(bytes, size, &key.node);
  plist_to_bin_free(bytes);
  std::uint64_t length = 0;
  const char* text = key.node ? plist_get_string_ptr(key.node, &length) : nullptr;
  if (!text) return std::nullopt;
  return std::string(text, length);
}

}  // namespace

std::shared_ptr<SimDictionary> readDictionaryFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return nullptr;
  std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (bytes.empty() || bytes.size() > std::numeric_limits<std::uint32_t>::max()) return nullptr;
  PlistTree tree;
  plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &tree.node);
  if (!tree.node || plist_get_node_type(tree.node) != PLIST_DICT) return nullptr;

  auto dictionary = std::make_shared<SimDictionary>();
  plist_dict_iter it = nullptr;
  plist_dict_new_iter(tree.node, &it);
  if (!it) return dictionary;
  for (;;) {
    plist_t item = nullptr;
    plist_dict_next_item(tree.node, it, nullptr, &item);
    if (!item) break;
    if (auto key = keyOf(item)) dictionary->set(std::move(*key), valueOf(item));
  }
  free(it);
  return dictionary;
}

bool writeSettingsFile(const std::string& path, const WorldConfig::Settings& settings) {
  PlistTree tree;
  tree.node = plist_new_dict();
  plist_dict_set_item(tree.node, "enabled", plist_new_bool(settings.enabled));
  plist_dict_set_item(tree.node, "darkMode", plist_new_bool(settings.darkMode));
  plist_dict_set_item(tree.node, "activationMethod",
                      plist_new_uint(static_cast<std::uint64_t>(settings.activationMethod)));
  char* xml = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(tree.node, &xml, &length);
  if (!xml) return false;
  std::string text(xml, length);
  plist_to_xml_free(xml);

  std::error_code ec;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ec);
  std::string temporary = path + ".writing";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out << text;
    if (!out.flush()) return false;
  }
  std::filesystem::rename(temporary, path, ec);
  return !ec;
}

}  // namespace tessel::sim
