#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "render/pixel_bytes.h"

namespace tessel::sim {
class World;
}

namespace tessel::render {

// A picture of the screen: 8-bit RGBA rows, not premultiplied.
struct Picture {
  int width = 0;
  int height = 0;
  PixelBytes rgba;
};

// Draws the key window as it looks at the world's current time (every
// animation at its eased point) at `scale` pixels per point. Drawing changes
// nothing that the library can see.
Picture renderWorld(const sim::World& world, double scale);

// Writes a PNG whole or not at all; false with the reason when it could not.
bool writePng(const Picture& picture, const std::string& path, std::string& error);

// An animated WebP, built frame by frame.
class Animation {
 public:
  Animation(int width, int height, double fps);
  ~Animation();
  Animation(const Animation&) = delete;
  Animation& operator=(const Animation&) = delete;
  void addFrame(const Picture& picture);
  int frames() const;
  bool write(const std::string& path, std::string& error);

 private:
  struct Encoder;
  Encoder* encoder_;
};

}  // namespace tessel::render
