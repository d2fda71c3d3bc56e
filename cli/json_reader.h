#pragma once

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/geometry.h"

namespace tessel::cli {

// Scenario files keep their keys in the order written (sections are listed
// in file order).
using Json = nlohmann::ordered_json;

// Reads typed values out of a JSON document and records every problem with
// its place, so that one run reports all of a file's mistakes at once.
class JsonReader {
 public:
  explicit JsonReader(std::vector<std::string>& errors) : errors_(errors) {}

  void error(const std::string& place, const std::string& message);
  bool failed() const { return !errors_.empty(); }

  // True when `value` is an object whose keys are all among `known`.
  bool object(const Json& value, const std::string& place, const std::vector<std::string>& known);
  std::optional<double> number(const Json& value, const std::string& place);
  std::optional<double> nonNegative(const Json& value, const std::string& place);
  std::optional<long long> integer(const Json& value, const std::string& place);
  std::optional<bool> boolean(const Json& value, const std::string& place);
  std::optional<std::string> string(const Json& value, const std::string& place);
  std::optional<std::vector<std::string>> strings(const Json& value, const std::string& place);
  std::optional<host::Point> point(const Json& value, const std::string& place);
  std::optional<host::Rect> rect(const Json& value, const std::string& place);

 private:
  std::vector<std::string>& errors_;
};

// "a.b", "a[3]" and "a[\"com.example.mail\"]" style places.
std::string member(const std::string& place, const std::string& key);
std::string element(const std::string& place, std::size_t index);

// Seconds since 1970 of an ISO 8601 UTC time ("2026-11-21T09:41:00Z", an
// offset "+02:00" or fractional seconds allowed), or nothing.
std::optional<double> parseIsoTime(const std::string& text);

}  // namespace tessel::cli
