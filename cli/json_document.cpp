#include "cli/json_document.h"

#include <vector>

#include "cli/limits.h"

namespace tessel::cli {

namespace {

// "line 3, column 5 (byte 40)" of a byte offset.
std::string lineAndColumn(const std::string& text, std::size_t offset) {
  std::size_t line = 1;
  std::size_t lineStart = 0;
  for (std::size_t i = 0; i < offset && i < text.size(); ++i) {
    if (text[i] == '\n') {
      ++line;
      lineStart = i + 1;
    }
  }
  return "line " + std::to_string(line) + ", column " + std::to_string(offset - lineStart + 1) + " (byte " +
         std::to_string(offset) + ")";
}

// Builds the document while keeping the path of the value being read, so
// that a problem can be named by its place; refuses to nest deeper than
// kMaxNesting, so that nothing that walks the document later can overflow
// the stack.
class BoundedBuilder {
 public:
  BoundedBuilder(const std::string& text, Json& root) : text_(text), root_(root) {}

  const std::string& error() const { return error_; }

  bool null() { return add(nullptr); }
  bool boolean(bool value) { return add(value); }
  bool number_integer(Json::number_integer_t value) { return add(value); }
  bool number_unsigned(Json::number_unsigned_t value) { return add(value); }
  bool number_float(Json::number_float_t value, const std::string&) { return add(value); }
  bool string(std::string& value) { return add(std::move(value)); }
  bool binary(Json::binary_t& value) { return add(Json::binary(std::move(value))); }
  bool start_object(std::size_t) { return open(Json::object()); }
  bool start_array(std::size_t) { return open(Json::array()); }
  bool key(std::string& key) {
    open_.back().key = std::move(key);
    return true;
  }
  bool end_object() { return close(); }
  bool end_array() { return close(); }

  bool parse_error(std::size_t position, const std::string& token, const Json::exception& problem) {
    constexpr int kNumberOverflow = 406;
    std::size_t offset = position > 0 ? position - 1 : 0;
    if (problem.id == kNumberOverflow) {
      error_ = placeOfNext() + ": number out of range: " + token;
    } else if (complete_) {
      error_ = "scenario: bytes after the end of the JSON document at " + lineAndColumn(text_, offset);
    } else {
      std::string what = problem.what();
      std::size_t detail = what.find("] ");
      error_ = "scenario: not valid JSON: " + (detail == std::string::npos ? what : what.substr(detail + 2));
    }
    return false;
  }

 private:
  struct Open {
    Json* value = nullptr;
    std::string place;
    std::size_t count = 0;  // elements so far, in an array
    std::string key;        // the key just read, in an object
  };

  std::string placeOfNext() const {
    if (open_.empty()) return "scenario";
    const Open& parent = open_.back();
    return parent.value->is_array() ? element(parent.place, parent.count) : member(parent.place, parent.key);
  }

  Json* add(Json value) {
    if (open_.empty()) {
      root_ = std::move(value);
      complete_ = !root_.is_structured();
      return &root_;
    }
    Open& parent = open_.back();
    if (parent.value->is_array()) {
      ++parent.count;
      parent.value->push_back(std::move(value));
      return &parent.value->back();
    }
    Json& slot = (*parent.value)[parent.key];
    slot = std::move(value);
    return &slot;
  }

  bool open(Json empty) {
    std::string place = placeOfNext();
    if (open_.size() >= static_cast<std::size_t>(kMaxNesting)) {
      error_ = place + ": nested deeper than " + std::to_string(kMaxNesting) + " levels of objects and arrays";
      return false;
    }
    Json* value = add(std::move(empty));
    open_.push_back({value, open_.empty() ? std::string() : place, 0, {}});
    return true;
  }

  bool close() {
    open_.pop_back();
    complete_ = open_.empty();
    return true;
  }

  const std::string& text_;
  Json& root_;
  std::vector<Open> open_;
  bool complete_ = false;
  std::string error_;
};

}  // namespace

DocumentRead readJsonDocument(const std::string& text) {
  // The parser takes a NUL byte for the end of the input and would quietly
  // ignore whatever follows it.
  if (std::size_t nul = text.find('\0'); nul != std::string::npos) {
    return {std::nullopt, "scenario: a NUL byte at " + lineAndColumn(text, nul) +
                              " (nothing may follow the JSON document, and a NUL is not JSON)"};
  }
  Json document;
  BoundedBuilder builder(text, document);
  if (!Json::sax_parse(text, &builder)) return {std::nullopt, builder.error()};
  return {std::move(document), ""};
}

}  // namespace tessel::cli
