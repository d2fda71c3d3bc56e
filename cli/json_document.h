#pragma once

#include <optional>
#include <string>

#include "cli/json_reader.h"

namespace tessel::cli {

// A JSON document read whole, or the one problem that stopped it, with its
// place: a value nested too deep or a number out of range by its path
// ("events[3].at"), a syntax error or bytes after the document by line and
// column.
struct DocumentRead {
  std::optional<Json> document;
  std::string error;
};

DocumentRead readJsonDocument(const std::string& text);

}  // namespace tessel::cli
