#include "sim/png_loader.h"

#include <png.h>

#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

namespace tessel::sim {

namespace {

// Everything the decoder touches lives here, outside the frame that calls
// setjmp, so that a longjmp out of libpng leaves it in a defined state.
struct Decoding {
  const std::vector<std::uint8_t>* file = nullptr;
  std::size_t offset = 0;
  std::vector<std::uint8_t> pixels;
  std::vector<png_bytep> rows;
  png_uint_32 width = 0;
  png_uint_32 height = 0;
  std::size_t channels = 0;
  char message[256] = {};
};

void readFromMemory(png_structp png, png_bytep out, png_size_t length) {
  auto* d = static_cast<Decoding*>(png_get_io_ptr(png));
  if (d->file->size() - d->offset < length) png_error(png, "the file ends too early");
  std::memcpy(out, d->file->data() + d->offset, length);
  d->offset += length;
}

void onError(png_structp png, png_const_charp message) {
  auto* d = static_cast<Decoding*>(png_get_error_ptr(png));
  std::snprintf(d->message, sizeof d->message, "%s", message);
  png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

constexpr std::uint64_t kMostInflatedPerByte = 1032;

// Returns false with d.message set when libpng gives up.
bool decode(png_structp png, png_infop info, Decoding& d) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_set_read_fn(png, &d, readFromMemory);
  png_read_info(png, info);
  // Deflate makes at most 1032 bytes of 1: a file too short to hold the
  // rows its header claims is refused before room is made for them.
  const std::uint64_t storedRows =
      (std::uint64_t{png_get_rowbytes(png, info)} + 1) * std::uint64_t{png_get_image_height(png, info)};
  if (storedRows > kMostInflatedPerByte * std::uint64_t{d.file->size()})
    png_error(png, "the file is too short for the pixels its header claims");
  png_byte colorType = png_get_color_type(png, info);
  bool hasAlpha = (colorType & PNG_COLOR_MASK_ALPHA) || png_get_valid(png, info, PNG_INFO_tRNS);
  png_set_expand(png);
  png_set_scale_16(png);
  if (!(colorType & PNG_COLOR_MASK_COLOR)) png_set_gray_to_rgb(png);
  png_set_interlace_handling(png);
  png_read_update_info(png, info);
  d.width = png_get_image_width(png, info);
  d.height = png_get_image_height(png, info);
  d.channels = png_get_channels(png, info);
  if (d.channels != (hasAlpha ? 4u : 3u)) png_error(png, "unexpected channel layout");
  std::size_t rowBytes = png_get_rowbytes(png, info);
  d.pixels.resize(rowBytes * d.height);
  d.rows.resize(d.height);
  for (png_uint_32 y = 0; y < d.height; ++y) d.rows[y] = d.pixels.data() + y * rowBytes;
  png_read_image(png, d.rows.data());
  png_read_end(png, nullptr);
  return true;
}

std::uint32_t bigEndian32(const std::uint8_t* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

struct ClaimedSize {
  std::uint64_t width = 0;
  std::uint64_t height = 0;
};

// The signature, the header chunk's length and type, then its width and
// height.
constexpr std::size_t kHeaderBytes = 8 + 8 + 8;

// The size the header (the IHDR chunk right after the signature) claims, so
// that an absurd one is refused before the decoder allocates for it.
std::optional<ClaimedSize> claimedSize(const std::vector<std::uint8_t>& file) {
  if (file.size() < kHeaderBytes || std::memcmp(file.data() + 12, "IHDR", 4) != 0) return std::nullopt;
  return ClaimedSize{bigEndian32(file.data() + 16), bigEndian32(file.data() + 20)};
}

}  // namespace

PngLoad loadPng(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return {nullptr, "cannot open " + path};
  // The signature and the header first: a file that is no PNG, or claims an
  // absurd size, is refused before the rest of it is read.
  std::vector<std::uint8_t> file(kHeaderBytes);
  in.read(reinterpret_cast<char*>(file.data()), std::streamsize(file.size()));
  file.resize(std::size_t(in.gcount()));
  if (file.size() < 8 || png_sig_cmp(file.data(), 0, 8) != 0) return {nullptr, path + " is not a PNG file"};

  if (auto size = claimedSize(file); size && size->width * size->height > kMaxPngPixels) {
    return {nullptr,
            path + ": the header claims " + std::to_string(size->width) + " x " + std::to_string(size->height) +
                " pixels, more than the " + std::to_string(kMaxPngPixels) + " a picture may have",
            true};
  }

  file.insert(file.end(), std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  Decoding d;
  d.file = &file;
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &d, onError, onWarning);
  if (!png) return {nullptr, "cannot start reading " + path};
  png_infop info = png_create_info_struct(png);
  bool ok = info && decode(png, info, d);
  png_destroy_read_struct(&png, info ? &info : nullptr, nullptr);
  if (!ok) return {nullptr, path + ": " + (d.message[0] ? d.message : "cannot read the PNG")};

  PixelLayout layout = d.channels == 4 ? PixelLayout::rgba : PixelLayout::rgb;
  std::size_t rowBytes = d.width * d.channels;
  return {std::make_shared<SimImage>(d.width, d.height, rowBytes, d.channels * 8, layout, std::move(d.pixels)), ""};
}

}  // namespace tessel::sim
