// Containers and strings.
// The order of these includes is what is being checked.
// clang-format off
#ifndef TESSEL_HEADERS_REVERSED
#include <array>
#include <deque>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>
#else
#include <vector>
#include <unordered_set>
#include <unordered_map>
#include <string_view>
#include <string>
#include <set>
#include <map>
#include <list>
#include <deque>
#include <array>
#endif
// clang-format on

std::size_t containersInUse(std::string_view key) {
  std::map<std::string, int, std::less<>> byName{{std::string(key), 1}};
  std::unordered_map<std::string, std::vector<int>> lists{{std::string(key), {1, 2}}};
  std::deque<std::array<int, 2>> pairs{{1, 2}};
  std::list<std::u16string> texts{u"x"};
  std::set<std::wstring> wide{L"x"};
  return byName.count(key) + lists.size() + pairs.size() + texts.size() + wide.size() + std::to_string(42).size();
}
