#include "cli/dump_file.h"

#include <cstdio>

#include "render/atomic_file.h"
#include "sim/world.h"

namespace tessel::cli {

using nlohmann::json;

namespace {

constexpr int kIndent = 2;

// `value` as it stands `depth` levels into an indented document.
std::string indented(const json& value, int depth) {
  std::string text = value.dump(kIndent);
  std::string margin(std::size_t(depth * kIndent), ' ');
  std::string result;
  result.reserve(text.size());
  for (char c : text) {
    result += c;
    if (c == '\n') result += margin;  // a newline inside a JSON string is escaped, never raw
  }
  return result;
}

void put(std::FILE* file, const std::string& text) { std::fwrite(text.data(), 1, text.size(), file); }

void putAnimations(std::FILE* file, const sim::World& world, const std::function<void(const json&)>& onAnimation) {
  bool first = true;
  world.forEachAnimation([&](const json& record) {
    put(file, (first ? "[\n    " : ",\n    ") + indented(record, 2));
    first = false;
    if (onAnimation) onAnimation(record);
  });
  put(file, first ? "[]" : "\n  ]");
}

}  // namespace

bool writeDumpFile(const std::string& path, const sim::World& world, std::string& error,
                   const std::function<void(const json&)>& onAnimation) {
  render::AtomicFile out(path);
  if (!out.file()) {
    error = out.error();
    return false;
  }
  std::FILE* file = out.file();
  const json rest = world.dumpWithoutAnimations();
  const std::string kAnimations = "animations";
  bool animationsWritten = false;
  bool first = true;
  auto member = [&](const std::string& key) {
    put(file, (first ? "{\n  " : ",\n  ") + json(key).dump() + ": ");
    first = false;
  };
  // Members in the document's own (sorted) order, the animations in their place.
  for (const auto& [key, value] : rest.items()) {
    if (!animationsWritten && kAnimations < key) {
      member(kAnimations);
      putAnimations(file, world, onAnimation);
      animationsWritten = true;
    }
    member(key);
    put(file, indented(value, 1));
  }
  if (!animationsWritten) {
    member(kAnimations);
    putAnimations(file, world, onAnimation);
  }
  put(file, "\n}\n");
  return out.commit(error);
}

}  // namespace tessel::cli
