#include "cli/serve/image_encoding.h"

#include <png.h>
#include <webp/encode.h>

#include <csetjmp>

namespace tessel::cli::serve {

namespace {

void appendToString(png_structp png, png_bytep data, png_size_t length) {
  auto* out = static_cast<std::string*>(png_get_io_ptr(png));
  out->append(reinterpret_cast<const char*>(data), length);
}

// Fast and good enough for a screen of flat colours and gradients.
constexpr int kWebpQuality = 80;

// The PNG library reports errors by jumping back here; nothing that needs
// destroying lives in this frame but the library's own structures.
bool writePng(const render::Picture& picture, std::string* out) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png ? png_create_info_struct(png) : nullptr;
  if (!info) {
    png_destroy_write_struct(&png, nullptr);
    return false;
  }
  if (setjmp(png_jmpbuf(png))) {
    png_destroy_write_struct(&png, &info);
    return false;
  }
  png_set_write_fn(png, out, appendToString, nullptr);
  png_set_compression_level(png, 1);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height), 8,
               PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
  png_write_info(png, info);
  const std::size_t stride = static_cast<std::size_t>(picture.width) * 4;
  for (int y = 0; y < picture.height; ++y) {
    png_write_row(png, const_cast<png_bytep>(picture.rgba.data() + stride * static_cast<std::size_t>(y)));
  }
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return true;
}

int writeToString(const std::uint8_t* data, std::size_t size, const WebPPicture* picture) {
  static_cast<std::string*>(picture->custom_ptr)->append(reinterpret_cast<const char*>(data), size);
  return 1;
}

}  // namespace

std::string encodePng(const render::Picture& picture) {
  std::string out;
  if (picture.width <= 0 || picture.height <= 0 || !writePng(picture, &out)) return {};
  return out;
}

std::string encodeWebp(const render::Picture& picture) {
  std::string out;
  if (picture.width <= 0 || picture.height <= 0) return out;
  WebPConfig config;
  WebPPicture input;
  if (!WebPConfigInit(&config) || !WebPPictureInit(&input)) return out;
  config.quality = kWebpQuality;
  config.method = 0;  // the fastest: a frame is wanted now, not small
  input.width = picture.width;
  input.height = picture.height;
  input.use_argb = 1;
  if (WebPPictureImportRGBA(&input, picture.rgba.data(), picture.width * 4)) {
    input.writer = writeToString;
    input.custom_ptr = &out;
    if (!WebPEncode(&config, &input)) out.clear();
  }
  WebPPictureFree(&input);
  return out;
}

}  // namespace tessel::cli::serve
