#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <variant>

#include "host/value.h"

namespace tessel::sim {

// A property-list value or a wrapped rectangle, with the platform's
// readings: numbers and booleans read as booleans (non-zero) and 32-bit
// integers; strings by the string readings; arrays, dictionaries, dates and
// data have no boolean or integer reading.
class SimValue : public host::Value {
 public:
  struct Opaque {};  // an array, dictionary, date or data
  using Content = std::variant<std::int64_t, double, bool, std::string, host::Rect, Opaque>;

  explicit SimValue(Content content) : content_(std::move(content)) {}

  // |host::Value|
  std::optional<bool> boolValue() const override;
  std::optional<std::int32_t> intValue() const override;
  std::optional<host::Rect> CGRectValue() const override;

  const Content& content() const { return content_; }

 private:
  Content content_;
};

// `NSDictionary` with string keys.
class SimDictionary : public host::Dictionary {
 public:
  // |host::Dictionary|
  host::Ref<host::Value> objectForKey(std::string_view key) const override;

  void set(std::string key, std::shared_ptr<host::Value> value) {
    entries_.insert_or_assign(std::move(key), std::move(value));
  }

 private:
  std::map<std::string, std::shared_ptr<host::Value>, std::less<>> entries_;
};

}  // namespace tessel::sim
