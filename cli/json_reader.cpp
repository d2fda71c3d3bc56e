#include "cli/json_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tessel::cli {

void JsonReader::error(const std::string& place, const std::string& message) {
  errors_.push_back(place + ": " + message);
}

bool JsonReader::object(const Json& value, const std::string& place, const std::vector<std::string>& known) {
  if (!value.is_object()) {
    error(place, "expected an object");
    return false;
  }
  for (const auto& [key, unused] : value.items()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) error(member(place, key), "unknown field");
  }
  return true;
}

std::optional<double> JsonReader::number(const Json& value, const std::string& place) {
  if (!value.is_number()) {
    error(place, "expected a number");
    return std::nullopt;
  }
  double number = value.get<double>();
  if (!std::isfinite(number)) {
    error(place, "expected a finite number");
    return std::nullopt;
  }
  return number;
}

std::optional<double> JsonReader::nonNegative(const Json& value, const std::string& place) {
  auto number = this->number(value, place);
  if (number && *number < 0) {
    error(place, "expected a number of at least 0");
    return std::nullopt;
  }
  return number;
}

std::optional<long long> JsonReader::integer(const Json& value, const std::string& place) {
  if (value.is_number_integer()) return value.get<long long>();
  if (value.is_number_float()) {
    double number = value.get<double>();
    if (std::isfinite(number) && number == std::floor(number) && std::fabs(number) < 9e15) {
      return static_cast<long long>(number);
    }
  }
  error(place, "expected an integer");
  return std::nullopt;
}

std::optional<bool> JsonReader::boolean(const Json& value, const std::string& place) {
  if (!value.is_boolean()) {
    error(place, "expected true or false");
    return std::nullopt;
  }
  return value.get<bool>();
}

std::optional<std::string> JsonReader::string(const Json& value, const std::string& place) {
  if (!value.is_string()) {
    error(place, "expected a string");
    return std::nullopt;
  }
  return value.get<std::string>();
}

std::optional<std::vector<std::string>> JsonReader::strings(const Json& value, const std::string& place) {
  if (!value.is_array()) {
    error(place, "expected an array of strings");
    return std::nullopt;
  }
  std::vector<std::string> result;
  bool ok = true;
  for (std::size_t i = 0; i < value.size(); ++i) {
    auto text = string(value[i], element(place, i));
    if (text) {
      result.push_back(*text);
    } else {
      ok = false;
    }
  }
  if (!ok) return std::nullopt;
  return result;
}

std::optional<host::Point> JsonReader::point(const Json& value, const std::string& place) {
  if (!value.is_array() || value.size() != 2 || !value[0].is_number() || !value[1].is_number()) {
    error(place, "expected [x, y]");
    return std::nullopt;
  }
  return host::Point{value[0].get<double>(), value[1].get<double>()};
}

std::optional<host::Rect> JsonReader::rect(const Json& value, const std::string& place) {
  bool ok = value.is_array() && value.size() == 4 &&
            std::all_of(value.begin(), value.end(), [](const Json& v) { return v.is_number(); });
  if (!ok) {
    error(place, "expected [x, y, width, height]");
    return std::nullopt;
  }
  host::Rect rect{value[0].get<double>(), value[1].get<double>(), value[2].get<double>(), value[3].get<double>()};
  if (rect.width < 0 || rect.height < 0) {
    error(place, "width and height must not be negative");
    return std::nullopt;
  }
  return rect;
}

std::string member(const std::string& place, const std::string& key) {
  bool plain = !key.empty() && std::all_of(key.begin(), key.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  });
  if (plain) return place.empty() ? key : place + "." + key;
  return place + "[" + Json(key).dump() + "]";
}

std::string element(const std::string& place, std::size_t index) { return place + "[" + std::to_string(index) + "]"; }

namespace {

// Days since 1970-01-01 of a civil date (proleptic Gregorian).
long long daysFromCivil(long long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long long>(doe) - 719468;
}

}  // namespace

std::optional<double> parseIsoTime(const std::string& text) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, consumed = 0;
  double second = 0;
  if (std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%lf%n", &year, &month, &day, &hour, &minute, &second, &consumed) !=
      6) {
    return std::nullopt;
  }
  // Written so that a NaN, which sscanf takes for "nan", is refused too.
  if (month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
      !(second >= 0 && second < 61)) {
    return std::nullopt;
  }
  std::string zone = text.substr(static_cast<std::size_t>(consumed));
  double offset = 0;
  if (zone == "Z" || zone == "z") {
    offset = 0;
  } else {
    int zoneHour = 0, zoneMinute = 0;
    char sign = 0;
    int zoneConsumed = 0;
    if (std::sscanf(zone.c_str(), "%c%2d:%2d%n", &sign, &zoneHour, &zoneMinute, &zoneConsumed) != 3 ||
        static_cast<std::size_t>(zoneConsumed) != zone.size() || (sign != '+' && sign != '-') || zoneHour < 0 ||
        zoneHour > 23 || zoneMinute < 0 || zoneMinute > 59) {
      return std::nullopt;
    }
    offset = (zoneHour * 3600.0 + zoneMinute * 60.0) * (sign == '+' ? 1 : -1);
  }
  double days = static_cast<double>(daysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)));
  return days * 86400.0 + hour * 3600.0 + minute * 60.0 + second - offset;
}

}  // namespace tessel::cli
