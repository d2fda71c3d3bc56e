#include "sim/icon_art.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

namespace tessel::sim {

namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// FNV-1a: the same identifier always gets the same colour.
std::uint32_t hash(const std::string& text) {
  std::uint32_t h = 2166136261u;
  for (unsigned char c : text) h = (h ^ c) * 16777619u;
  return h;
}

std::uint8_t toByte(double c) { return static_cast<std::uint8_t>(std::lround(std::clamp(c, 0.0, 1.0) * 255)); }

}  // namespace

std::optional<host::Color> parseHexColor(const std::string& text) {
  if (text.size() != 7 || text[0] != '#') return std::nullopt;
  double parts[3];
  for (int i = 0; i < 3; ++i) {
    int hi = hexDigit(text[1 + 2 * i]);
    int lo = hexDigit(text[2 + 2 * i]);
    if (hi < 0 || lo < 0) return std::nullopt;
    parts[i] = (hi * 16 + lo) / 255.0;
  }
  return host::Color{parts[0], parts[1], parts[2], 1};
}

host::Color generatedColor(const std::string& identifier) {
  double hue = (hash(identifier) % 360) / 60.0;
  double s = 0.6, v = 0.85;
  double c = v * s;
  double x = c * (1 - std::fabs(std::fmod(hue, 2) - 1));
  double r = 0, g = 0, b = 0;
  switch (static_cast<int>(hue)) {
    case 0:
      r = c, g = x;
      break;
    case 1:
      r = x, g = c;
      break;
    case 2:
      g = c, b = x;
      break;
    case 3:
      g = x, b = c;
      break;
    case 4:
      r = x, b = c;
      break;
    default:
      r = c, b = x;
      break;
  }
  double m = v - c;
  return {r + m, g + m, b + m, 1};
}

std::string generatedName(const std::string& identifier) {
  auto dot = identifier.find_last_of('.');
  std::string name = dot == std::string::npos ? identifier : identifier.substr(dot + 1);
  if (!name.empty()) name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return name;
}

std::shared_ptr<SimImage> generatedIconImage(const host::Color& color, double points, double scale) {
  auto side = static_cast<std::size_t>(std::max(1.0, std::round(points * scale)));
  std::vector<std::uint8_t> bytes(side * side * 4);
  for (std::size_t y = 0; y < side; ++y) {
    double lift = 0.25 * (1 - static_cast<double>(y) / static_cast<double>(side));
    std::uint8_t px[4] = {toByte(color.blue + (1 - color.blue) * lift), toByte(color.green + (1 - color.green) * lift),
                          toByte(color.red + (1 - color.red) * lift), 255};
    for (std::size_t x = 0; x < side; ++x) std::copy(px, px + 4, &bytes[(y * side + x) * 4]);
  }
  return std::make_shared<SimImage>(side, side, side * 4, 32, PixelLayout::bgraPremultiplied, std::move(bytes), scale);
}

}  // namespace tessel::sim
