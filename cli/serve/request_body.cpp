#include "cli/serve/request_body.h"

#include <cmath>

#include <fmt/format.h>

namespace tessel::cli::serve {

using nlohmann::json;

namespace {

// Deep enough for any request the server takes; a deeper one is refused
// before it can exhaust the stack.
constexpr int kMaxDepth = 8;

// Far beyond any screen, and short of where arithmetic on points misbehaves.
constexpr double kMaxCoordinate = 1e5;

}  // namespace

RequestBody::RequestBody(const std::string& text, const std::vector<std::string_view>& known) {
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
    object_ = json::object();
    return;
  }
  bool tooDeep = false;
  json::parser_callback_t limit = [&](int nesting, json::parse_event_t event, json&) {
    bool opens = event == json::parse_event_t::object_start || event == json::parse_event_t::array_start;
    if (opens && nesting >= kMaxDepth) tooDeep = true;
    return !tooDeep;
  };
  try {
    object_ = json::parse(text, limit);
  } catch (const json::parse_error& e) {
    throw BadRequest(std::string("the body is not JSON: ") + e.what());
  }
  if (tooDeep) throw BadRequest(fmt::format("the body nests deeper than {} levels", kMaxDepth));
  if (!object_.is_object()) throw BadRequest("the body must be a JSON object");
  for (const auto& [key, value] : object_.items()) {
    bool isKnown = false;
    for (auto name : known) isKnown = isKnown || key == name;
    if (!isKnown) throw BadRequest(fmt::format("{}: unknown field", key));
  }
}

const json& RequestBody::field(const std::string& key) const {
  auto found = object_.find(key);
  if (found == object_.end()) throw BadRequest(key + ": missing");
  return *found;
}

std::string RequestBody::text(const std::string& key, std::size_t maxLength) const {
  const json& value = field(key);
  if (!value.is_string()) throw BadRequest(key + ": expected a string");
  const auto& text = value.get_ref<const std::string&>();
  if (text.size() > maxLength) throw BadRequest(fmt::format("{}: longer than {} bytes", key, maxLength));
  return text;
}

bool RequestBody::boolean(const std::string& key) const {
  const json& value = field(key);
  if (!value.is_boolean()) throw BadRequest(key + ": expected true or false");
  return value.get<bool>();
}

std::optional<bool> RequestBody::optionalBoolean(const std::string& key) const {
  if (!has(key)) return std::nullopt;
  return boolean(key);
}

double RequestBody::number(const std::string& key, double min, double max) const {
  const json& value = field(key);
  if (!value.is_number()) throw BadRequest(key + ": expected a number");
  double number = value.get<double>();
  if (!std::isfinite(number) || number < min || number > max)
    throw BadRequest(fmt::format("{}: expected a number from {:g} to {:g}", key, min, max));
  return number;
}

long long RequestBody::integer(const std::string& key, long long min, long long max) const {
  const json& value = field(key);
  if (!value.is_number_integer()) throw BadRequest(key + ": expected an integer");
  // An unsigned value too large for a signed one is out of range as well.
  if (value.is_number_unsigned() && value.get<unsigned long long>() > static_cast<unsigned long long>(max))
    throw BadRequest(fmt::format("{}: expected an integer from {} to {}", key, min, max));
  long long number = value.get<long long>();
  if (number < min || number > max)
    throw BadRequest(fmt::format("{}: expected an integer from {} to {}", key, min, max));
  return number;
}

host::Point RequestBody::point(const std::string& key) const {
  const json& value = field(key);
  if (!value.is_array() || value.size() != 2 || !value[0].is_number() || !value[1].is_number())
    throw BadRequest(key + ": expected [x, y] in points");
  host::Point point{value[0].get<double>(), value[1].get<double>()};
  if (!(std::abs(point.x) <= kMaxCoordinate) || !(std::abs(point.y) <= kMaxCoordinate))
    throw BadRequest(fmt::format("{}: expected coordinates from {:g} to {:g}", key, -kMaxCoordinate, kMaxCoordinate));
  return point;
}

}  // namespace tessel::cli::serve
