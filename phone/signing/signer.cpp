#include "phone/signing/signer.h"

#include <limits>
#include <string>

#include "phone/signing/byte_order.h"
#include "phone/signing/code_directory.h"
#include "phone/signing/embedded_signature.h"
#include "phone/signing/input_error.h"
#include "phone/signing/macho_layout.h"
#include "phone/signing/signature_format.h"

namespace tessel::signing {

std::vector<std::uint8_t> signImage(std::span<const std::uint8_t> image, std::string_view identifier) {
  if (!isValidIdentifier(identifier)) {
    throw InputError("invalid identifier \"" + std::string(identifier) + "\": use printable ASCII without spaces");
  }
  const MachOLayout layout = readMachOLayout(image);
  const std::uint32_t codeLimit = layout.signatureOffset;
  const std::uint64_t reserved =
      (std::uint64_t{embeddedSignatureLength(codeLimit, identifier)} + kSignatureAlignment - 1) / kSignatureAlignment *
      kSignatureAlignment;
  if (codeLimit + reserved > std::numeric_limits<std::uint32_t>::max()) {
    throw InputError("too large: a signed file must stay below 4 GiB");
  }

  // The headers are inside the hashed range, so they describe the new signature first.
  std::vector<std::uint8_t> signedImage(image.begin(), image.begin() + codeLimit);
  const std::uint64_t linkeditFileSize = codeLimit + reserved - layout.linkeditFileOffset;
  writeLittle32(signedImage, layout.signatureSizeAt, static_cast<std::uint32_t>(reserved));
  writeLittle64(signedImage, layout.linkeditFileSizeAt, linkeditFileSize);
  writeLittle64(signedImage, layout.linkeditVmSizeAt, resizedLinkeditVmSize(layout, linkeditFileSize));

  const std::vector<std::uint8_t> signature = buildEmbeddedSignature(signedImage, identifier);
  signedImage.insert(signedImage.end(), signature.begin(), signature.end());
  signedImage.resize(codeLimit + reserved, 0);
  return signedImage;
}

}  // namespace tessel::signing
