#include "fuzz/targets/located_message.h"

#include <cstddef>

namespace tessel::fuzz {

namespace {

bool isPlainKeyCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// Each reader moves `at` past what it accepts and says whether it did.
bool readPlainKey(std::string_view text, std::size_t& at) {
  std::size_t start = at;
  while (at < text.size() && isPlainKeyCharacter(text[at])) ++at;
  return at > start;
}

bool readQuotedKey(std::string_view text, std::size_t& at) {
  if (at >= text.size() || text[at] != '"') return false;
  for (++at; at < text.size(); ++at) {
    if (text[at] == '\\') {
      ++at;
    } else if (text[at] == '"') {
      ++at;
      return true;
    }
  }
  return false;
}

bool readIndex(std::string_view text, std::size_t& at) {
  std::size_t start = at;
  while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
  return at > start;
}

// "[3]" or "[\"key\"]".
bool readBracket(std::string_view text, std::size_t& at) {
  if (at >= text.size() || text[at] != '[') return false;
  ++at;
  if (!readIndex(text, at) && !readQuotedKey(text, at)) return false;
  if (at >= text.size() || text[at] != ']') return false;
  ++at;
  return true;
}

}  // namespace

bool isLocatedMessage(std::string_view text) {
  std::size_t at = 0;
  if (!readPlainKey(text, at) && !readBracket(text, at)) return false;
  while (at < text.size() && (text[at] == '.' || text[at] == '[')) {
    bool read = text[at] == '.' ? readPlainKey(text, ++at) : readBracket(text, at);
    if (!read) return false;
  }
  return text.substr(at, 2) == ": " && text.size() > at + 2;
}

}  // namespace tessel::fuzz
