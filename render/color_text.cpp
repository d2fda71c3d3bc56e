#include "render/color_text.h"

namespace tessel::render {
namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::optional<host::Color> parseHexColor(std::string_view text) {
  if (!text.empty() && text.front() == '#') text.remove_prefix(1);
  if (text.size() != 6) return std::nullopt;
  double channels[3];
  for (int i = 0; i < 3; ++i) {
    int high = hexDigit(text[std::size_t(2 * i)]);
    int low = hexDigit(text[std::size_t(2 * i + 1)]);
    if (high < 0 || low < 0) return std::nullopt;
    channels[i] = (high * 16 + low) / 255.0;
  }
  return host::Color{channels[0], channels[1], channels[2], 1};
}

double luminance(const host::Color& color) { return 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue; }

}  // namespace tessel::render
