#include "cli/serve/web_assets.h"

namespace tessel::cli::serve {

const WebAsset* findWebAsset(std::string_view path) {
  if (path == "/") path = "/index.html";
  for (const auto& asset : webAssets()) {
    if (asset.path == path) return &asset;
  }
  return nullptr;
}

std::string_view mimeTypeOf(std::string_view path) {
  auto endsWith = [&](std::string_view suffix) {
    return path.size() >= suffix.size() && path.substr(path.size() - suffix.size()) == suffix;
  };
  if (endsWith(".html")) return "text/html; charset=utf-8";
  if (endsWith(".js")) return "text/javascript; charset=utf-8";
  if (endsWith(".css")) return "text/css; charset=utf-8";
  if (endsWith(".svg")) return "image/svg+xml";
  if (endsWith(".png")) return "image/png";
  return "application/octet-stream";
}

}  // namespace tessel::cli::serve
