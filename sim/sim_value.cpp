#include "sim/sim_value.h"

#include <cmath>
#include <limits>

#include "sim/string_readings.h"

namespace tessel::sim {

namespace {

// A real number read as an integer: toward zero, saturating, NaN as 0.
std::int32_t realToInt32(double value) {
  if (std::isnan(value)) return 0;
  double t = std::trunc(value);
  if (t >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
    return std::numeric_limits<std::int32_t>::max();
  if (t <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
    return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(t);
}

template <class... F>
struct Overloaded : F... {
  using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

}  // namespace

std::optional<bool> SimValue::boolValue() const {
  return std::visit(Overloaded{[](std::int64_t v) -> std::optional<bool> { return v != 0; },
                               [](double v) -> std::optional<bool> { return v != 0; },
                               [](bool v) -> std::optional<bool> { return v; },
                               [](const std::string& v) -> std::optional<bool> { return stringBoolValue(v); },
                               [](const host::Rect&) -> std::optional<bool> { return std::nullopt; },
                               [](Opaque) -> std::optional<bool> { return std::nullopt; }},
                    content_);
}

std::optional<std::int32_t> SimValue::intValue() const {
  using R = std::optional<std::int32_t>;
  return std::visit(
      Overloaded{// An integer keeps its low 32 bits, as the platform's number does.
                 [](std::int64_t v) -> R { return static_cast<std::int32_t>(static_cast<std::uint32_t>(v)); },
                 [](double v) -> R { return realToInt32(v); }, [](bool v) -> R { return v ? 1 : 0; },
                 [](const std::string& v) -> R { return stringIntValue(v); },
                 [](const host::Rect&) -> R { return std::nullopt; }, [](Opaque) -> R { return std::nullopt; }},
      content_);
}

std::optional<host::Rect> SimValue::CGRectValue() const {
  if (const auto* rect = std::get_if<host::Rect>(&content_)) return *rect;
  return std::nullopt;
}

host::Ref<host::Value> SimDictionary::objectForKey(std::string_view key) const {
  auto found = entries_.find(key);
  return found == entries_.end() ? host::Ref<host::Value>() : host::Ref<host::Value>(found->second);
}

}  // namespace tessel::sim
