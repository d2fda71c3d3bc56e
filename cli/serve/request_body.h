#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/geometry.h"

namespace tessel::cli::serve {

// A request the server will not act on; its message says why, naming the
// field at fault, and is answered with status 400.
class BadRequest : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The JSON object a request carries, read field by field; every reader
// throws BadRequest when the field is missing (where required) or wrong.
class RequestBody {
 public:
  // An empty body stands for {}. Throws BadRequest for anything but an
  // object, or one with a field not in `known`.
  RequestBody(const std::string& text, const std::vector<std::string_view>& known);

  bool has(const std::string& key) const { return object_.contains(key); }
  std::string text(const std::string& key, std::size_t maxLength) const;
  bool boolean(const std::string& key) const;
  double number(const std::string& key, double min, double max) const;
  long long integer(const std::string& key, long long min, long long max) const;
  host::Point point(const std::string& key) const;

  std::optional<bool> optionalBoolean(const std::string& key) const;

 private:
  const nlohmann::json& field(const std::string& key) const;
  nlohmann::json object_;
};

}  // namespace tessel::cli::serve
