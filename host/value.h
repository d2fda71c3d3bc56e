#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/geometry.h"
#include "host/object.h"

namespace tessel::host {

// A value of a dictionary (a number, string, boolean, date, array, data or
// wrapped rectangle). Each reading is the platform's own; an object with no
// such reading (an array asked for a boolean) answers nothing.
class Value : public virtual Object {
 public:
  virtual std::optional<bool> boolValue() const { return std::nullopt; }
  virtual std::optional<std::int32_t> intValue() const { return std::nullopt; }
  virtual std::optional<Rect> CGRectValue() const { return std::nullopt; }
};

// `NSDictionary`.
class Dictionary : public virtual Object {
 public:
  virtual Ref<Value> objectForKey(std::string_view /*key*/) const { return {}; }
};

}  // namespace tessel::host
