#pragma once

#include <span>
#include <string_view>

namespace tessel::cli::serve {

// A file of the page, built into the program so that it needs none at run time.
struct WebAsset {
  std::string_view path;  // as requested: "/index.html", "/app.js", …
  std::string_view bytes;
};

// Every file of web/, made into code when the build is configured.
std::span<const WebAsset> webAssets();

// The file a path names ("/" is the page itself), or nothing.
const WebAsset* findWebAsset(std::string_view path);

// The Content-Type a file is served with, by its extension.
std::string_view mimeTypeOf(std::string_view path);

}  // namespace tessel::cli::serve
