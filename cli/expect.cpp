#include "cli/expect.h"

#include <cmath>

#include "cli/limits.h"

namespace tessel::cli {

using nlohmann::json;

std::optional<std::string> resolvePointer(const std::string& pointer, const json& dump) {
  std::string resolved;
  std::size_t at = 0;
  while (at < pointer.size()) {
    std::size_t open = pointer.find('{', at);
    if (open == std::string::npos) {
      resolved += pointer.substr(at);
      break;
    }
    std::size_t close = pointer.find('}', open);
    if (close == std::string::npos) return std::nullopt;
    resolved += pointer.substr(at, open - at);
    try {
      const json& inner = dump.at(json::json_pointer(pointer.substr(open + 1, close - open - 1)));
      if (!inner.is_string()) return std::nullopt;
      resolved += inner.get<std::string>();
    } catch (const json::exception&) {
      return std::nullopt;
    }
    at = close + 1;
  }
  return resolved;
}

namespace {

const json* find(const std::string& pointer, const json& dump) {
  try {
    json::json_pointer at(pointer);
    if (!dump.contains(at)) return nullptr;
    return &dump.at(at);
  } catch (const json::exception&) {
    return nullptr;
  }
}

// Arrays compare element by element, no deeper than a scenario may nest.
bool near(const json& got, const json& want, double tolerance, int depth = 0) {
  if (want.is_number()) return got.is_number() && std::fabs(got.get<double>() - want.get<double>()) <= tolerance;
  if (!got.is_array() || got.size() != want.size() || depth >= kMaxNesting) return false;
  for (std::size_t i = 0; i < want.size(); ++i) {
    if (!near(got[i], want[i], tolerance, depth + 1)) return false;
  }
  return true;
}

bool contains(const json& got, const json& want) {
  if (got.is_array()) {
    for (const auto& item : got) {
      if (item == want) return true;
    }
    return false;
  }
  if (got.is_string() && want.is_string())
    return got.get<std::string>().find(want.get<std::string>()) != std::string::npos;
  if (got.is_object() && want.is_string()) return got.contains(want.get<std::string>());
  return false;
}

}  // namespace

std::optional<std::string> checkExpectation(const Event& expect, const json& dump) {
  auto pointer = resolvePointer(expect.pointer, dump);
  if (!pointer) return expect.pointer + ": got an unresolvable pointer, want one that names a string";
  const json* got = find(*pointer, dump);
  std::string gotText = got ? got->dump() : "nothing";
  if (expect.check == "absent") {
    bool absent = got == nullptr || got->is_null();
    if (absent == expect.value.get<bool>()) return std::nullopt;
    return *pointer + ": got " + gotText + ", want " + (expect.value.get<bool>() ? "nothing" : "a value");
  }
  bool holds = false;
  std::string want = expect.value.dump();
  if (got && expect.check == "equals") holds = *got == expect.value;
  if (got && expect.check == "near") {
    holds = near(*got, expect.value, expect.tolerance);
    want += " within " + json(expect.tolerance).dump();
  }
  if (got && expect.check == "contains") {
    holds = contains(*got, expect.value);
    want = "something containing " + want;
  }
  if (holds) return std::nullopt;
  return *pointer + ": got " + gotText + ", want " + want;
}

}  // namespace tessel::cli
