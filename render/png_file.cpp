#include "render/png_file.h"

#include <png.h>

#include <cstring>

#include "render/atomic_file.h"

namespace tessel::render {

bool writePng(const Picture& picture, const std::string& path, std::string& error) {
  if (picture.width <= 0 || picture.height <= 0 ||
      picture.rgba.size() != std::size_t(picture.width) * std::size_t(picture.height) * 4) {
    error = "cannot write " + path + ": the picture is empty or its pixels do not match its size";
    return false;
  }
  return writeFileAtomically(
      path,
      [&](std::FILE* file, std::string& reason) {
        png_image image;
        std::memset(&image, 0, sizeof image);
        image.version = PNG_IMAGE_VERSION;
        image.width = png_uint_32(picture.width);
        image.height = png_uint_32(picture.height);
        image.format = PNG_FORMAT_RGBA;
        // Faster to write, lossless; the files come out somewhat larger.
        image.flags = PNG_IMAGE_FLAG_FAST;
        if (png_image_write_to_stdio(&image, file, 0, picture.rgba.data(), 0, nullptr)) return true;
        reason = "cannot write " + path + ": " + image.message;
        return false;
      },
      error);
}

std::optional<Picture> readPng(const std::string& path, std::string& error) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) {
    error = "cannot read " + path + ": " + image.message;
    return std::nullopt;
  }
  image.format = PNG_FORMAT_RGBA;
  Picture picture;
  picture.width = int(image.width);
  picture.height = int(image.height);
  picture.rgba.resize(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, picture.rgba.data(), 0, nullptr)) {
    error = "cannot read " + path + ": " + image.message;
    png_image_free(&image);
    return std::nullopt;
  }
  return picture;
}

}  // namespace tessel::render
