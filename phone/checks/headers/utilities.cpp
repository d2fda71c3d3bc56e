// Memory, function objects, vocabulary types and algorithms.
// The order of these includes is what is being checked.
// clang-format off
#ifndef TESSEL_HEADERS_REVERSED
#include <algorithm>
#include <any>
#include <bit>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <numeric>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#else
#include <variant>
#include <utility>
#include <type_traits>
#include <tuple>
#include <optional>
#include <numeric>
#include <memory>
#include <limits>
#include <iterator>
#include <functional>
#include <cstdint>
#include <cstddef>
#include <compare>
#include <bit>
#include <any>
#include <algorithm>
#endif
// clang-format on

// Only what the phone's C++ library of iOS 7 supports: get_if rather than
// std::get, a pointer any_cast rather than by value, `*` rather than value().
int utilitiesInUse(const std::optional<int>& maybe, const std::variant<int, double>& either, const std::any& anything) {
  auto shared = std::make_shared<int>(maybe.value_or(0));
  std::weak_ptr<int> weak = shared;
  std::function<int(int)> twice = [](int x) { return 2 * x; };
  const int* whole = std::get_if<int>(&either);
  const int* held = std::any_cast<int>(&anything);
  int values[]{3, 1, 2};
  std::sort(std::begin(values), std::end(values));
  return twice(*weak.lock()) + (whole ? *whole : 0) + (held ? *held : 0) +
         std::accumulate(std::begin(values), std::end(values), 0) + std::popcount(std::uint32_t{7}) +
         (maybe ? *maybe : 0);
}
