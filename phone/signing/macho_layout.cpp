#include "phone/signing/macho_layout.h"

#include <cstring>
#include <optional>
#include <string>

#include "phone/signing/byte_order.h"
#include "phone/signing/input_error.h"

namespace tessel::signing {
namespace {

constexpr std::uint32_t kMagic64 = 0xfeedfacf;
constexpr std::uint32_t kMagic64Swapped = 0xcffaedfe;
constexpr std::uint32_t kMagic32 = 0xfeedface;
constexpr std::uint32_t kMagic32Swapped = 0xcefaedfe;
// Universal headers are big-endian; these are their magics read little-endian.
constexpr std::uint32_t kFatMagicReadLittle = 0xbebafeca;
constexpr std::uint32_t kFat64MagicReadLittle = 0xbfbafeca;

constexpr std::uint32_t kCpuTypeArm64 = 0x0100000c;

constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kCpuTypeAt = 4;
constexpr std::size_t kNcmdsAt = 16;
constexpr std::size_t kSizeofcmdsAt = 20;

constexpr std::uint32_t kLoadSegment64 = 0x19;
constexpr std::uint32_t kLoadCodeSignature = 0x1d;
constexpr std::size_t kSegmentCommandSize = 72;
constexpr std::size_t kSegmentNameAt = 8;
constexpr std::size_t kSegmentVmSizeAt = 32;
constexpr std::size_t kSegmentFileOffsetAt = 40;
constexpr std::size_t kSegmentFileSizeAt = 48;
constexpr std::size_t kLinkeditDataCommandSize = 16;
constexpr std::size_t kDataOffsetAt = 8;
constexpr std::size_t kDataSizeAt = 12;

struct LoadCommands {
  std::uint64_t end = 0;
  std::optional<std::size_t> codeSignatureAt;
  std::optional<std::size_t> linkeditAt;
};

void checkMagic(std::span<const std::uint8_t> image) {
  if (image.size() < 4) throw InputError("not a Mach-O file: only " + std::to_string(image.size()) + " bytes");
  switch (readLittle32(image, 0)) {
    case kMagic64:
      return;
    case kMagic32:
    case kMagic32Swapped:
      throw InputError("32-bit Mach-O files are not supported: only 64-bit (arm64) dylibs are signed");
    case kFatMagicReadLittle:
    case kFat64MagicReadLittle:
      throw InputError("fat (universal) file: sign each thin slice separately");
    case kMagic64Swapped:
      throw InputError("big-endian Mach-O files are not supported");
    default:
      throw InputError("not a Mach-O file (unknown magic number)");
  }
}

InputError truncated(const std::string& partEnds, std::uint64_t end, std::size_t fileSize) {
  return InputError("truncated: " + partEnds + " at byte " + std::to_string(end) + " but the file has " +
                    std::to_string(fileSize) + " bytes");
}

bool isLinkeditSegment(std::span<const std::uint8_t> command) {
  static constexpr char kName[16] = "__LINKEDIT";
  return std::memcmp(command.data() + kSegmentNameAt, kName, sizeof kName) == 0;
}

LoadCommands scanLoadCommands(std::span<const std::uint8_t> image) {
  checkMagic(image);
  if (image.size() < kHeaderSize) {
    throw truncated("the Mach-O header ends", kHeaderSize, image.size());
  }
  LoadCommands found;
  found.end = kHeaderSize + std::uint64_t{readLittle32(image, kSizeofcmdsAt)};
  if (found.end > image.size()) throw truncated("the load commands end", found.end, image.size());

  const std::uint32_t commandCount = readLittle32(image, kNcmdsAt);
  std::size_t at = kHeaderSize;
  for (std::uint32_t index = 0; index < commandCount; ++index) {
    const std::string which = "load command " + std::to_string(index);
    if (at + 8 > found.end) throw InputError("malformed: " + which + " lies outside the load commands");
    const std::uint32_t command = readLittle32(image, at);
    const std::uint32_t commandSize = readLittle32(image, at + 4);
    if (commandSize < 8 || at + commandSize > found.end) {
      throw InputError("malformed: " + which + " has size " + std::to_string(commandSize));
    }
    if (command == kLoadCodeSignature) {
      if (found.codeSignatureAt) throw InputError("malformed: more than one LC_CODE_SIGNATURE");
      if (commandSize < kLinkeditDataCommandSize) throw InputError("malformed: LC_CODE_SIGNATURE is too short");
      found.codeSignatureAt = at;
    } else if (command == kLoadSegment64 && commandSize >= kSegmentCommandSize &&
               isLinkeditSegment(image.subspan(at, commandSize))) {
      if (found.linkeditAt) throw InputError("malformed: more than one __LINKEDIT segment");
      found.linkeditAt = at;
    }
    at += commandSize;
  }
  if (!found.codeSignatureAt) {
    throw InputError("no LC_CODE_SIGNATURE load command: link with -Wl,-adhoc_codesign to reserve one");
  }
  return found;
}

SignatureLocation signatureLocation(std::span<const std::uint8_t> image, const LoadCommands& commands) {
  SignatureLocation location;
  location.offset = readLittle32(image, *commands.codeSignatureAt + kDataOffsetAt);
  location.size = readLittle32(image, *commands.codeSignatureAt + kDataSizeAt);
  const std::uint64_t end = std::uint64_t{location.offset} + location.size;
  if (end > image.size()) throw truncated("the code signature ends", end, image.size());
  if (location.offset < commands.end) throw InputError("malformed: the code signature overlaps the load commands");
  return location;
}

}  // namespace

SignatureLocation readSignatureLocation(std::span<const std::uint8_t> image) {
  return signatureLocation(image, scanLoadCommands(image));
}

MachOLayout readMachOLayout(std::span<const std::uint8_t> image) {
  const LoadCommands commands = scanLoadCommands(image);
  if (!commands.linkeditAt) throw InputError("no __LINKEDIT segment to hold the signature");
  const std::size_t linkeditAt = *commands.linkeditAt;

  MachOLayout layout;
  layout.cpuType = readLittle32(image, kCpuTypeAt);
  layout.linkeditVmSize = readLittle64(image, linkeditAt + kSegmentVmSizeAt);
  layout.linkeditFileOffset = readLittle64(image, linkeditAt + kSegmentFileOffsetAt);
  layout.linkeditFileSize = readLittle64(image, linkeditAt + kSegmentFileSizeAt);
  layout.linkeditVmSizeAt = linkeditAt + kSegmentVmSizeAt;
  layout.linkeditFileSizeAt = linkeditAt + kSegmentFileSizeAt;
  const std::uint64_t linkeditEnd = layout.linkeditFileOffset + layout.linkeditFileSize;
  if (linkeditEnd < layout.linkeditFileOffset || linkeditEnd > image.size()) {
    throw truncated("__LINKEDIT ends", linkeditEnd, image.size());
  }

  const SignatureLocation location = signatureLocation(image, commands);
  layout.signatureOffset = location.offset;
  layout.signatureSize = location.size;
  layout.signatureSizeAt = *commands.codeSignatureAt + kDataSizeAt;
  if (location.offset < layout.linkeditFileOffset || std::uint64_t{location.offset} + location.size != linkeditEnd) {
    throw InputError("the code signature is not the last thing in __LINKEDIT");
  }
  if (linkeditEnd != image.size()) {
    throw InputError(std::to_string(image.size() - linkeditEnd) +
                     " bytes follow __LINKEDIT; the signature must end the file");
  }
  return layout;
}

std::uint64_t resizedLinkeditVmSize(const MachOLayout& layout, std::uint64_t newFileSize) {
  // Segments are mapped in pages of this size. Some linkers round __LINKEDIT's vmsize up
  // to it, lld leaves it equal to the filesize: keep whichever the linker chose.
  const std::uint64_t alignment = layout.cpuType == kCpuTypeArm64 ? 0x4000 : 0x1000;
  if (layout.linkeditVmSize % alignment != 0) return newFileSize;
  return (newFileSize + alignment - 1) / alignment * alignment;
}

}  // namespace tessel::signing
