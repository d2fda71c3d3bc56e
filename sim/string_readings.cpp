#include "sim/string_readings.h"

#include <limits>

namespace tessel::sim {

namespace {

// The length of the white-space character at the start of `text` (a tab or
// a Unicode space separator in UTF-8), or 0.
std::size_t whiteSpaceAt(std::string_view text) {
  if (text.empty()) return 0;
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (text[0] == ' ' || text[0] == '\t') return 1;
  if (text.size() >= 2 && byte(0) == 0xC2 && byte(1) == 0xA0) return 2;  // no-break space
  if (text.size() >= 3) {
    unsigned a = byte(0), b = byte(1), c = byte(2);
    if (a == 0xE1 && b == 0x9A && c == 0x80) return 3;                 // ogham space mark
    if (a == 0xE2 && b == 0x80 && (c <= 0x8A || c == 0xAF)) return 3;  // en quad … hair space, narrow no-break
    if (a == 0xE2 && b == 0x81 && c == 0x9F) return 3;                 // medium mathematical space
    if (a == 0xE3 && b == 0x80 && c == 0x80) return 3;                 // ideographic space
  }
  return 0;
}

std::string_view skipWhiteSpace(std::string_view text) {
  while (std::size_t n = whiteSpaceAt(text)) text.remove_prefix(n);
  return text;
}

}  // namespace

bool stringBoolValue(std::string_view text) {
  text = skipWhiteSpace(text);
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
  while (!text.empty() && text[0] == '0') text.remove_prefix(1);
  if (text.empty()) return false;
  char c = text[0];
  return c == 'Y' || c == 'y' || c == 'T' || c == 't' || (c >= '1' && c <= '9');
}

std::int32_t stringIntValue(std::string_view text) {
  text = skipWhiteSpace(text);
  bool negative = false;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    negative = text[0] == '-';
    text.remove_prefix(1);
  }
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();
  std::int64_t value = 0;
  for (char c : text) {
    if (c < '0' || c > '9') break;
    value = value * 10 + (c - '0');
    if (value > -kMin) value = -kMin;  // saturated; further digits change nothing
  }
  if (negative) value = -value;
  if (value > kMax) return static_cast<std::int32_t>(kMax);
  if (value < kMin) return static_cast<std::int32_t>(kMin);
  return static_cast<std::int32_t>(value);
}

}  // namespace tessel::sim
