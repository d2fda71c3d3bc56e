#pragma once

#include <cstdint>

// Layout of the embedded signature blobs. Every multi-byte field is big-endian.
namespace tessel::signing {

inline constexpr std::uint32_t kSuperBlobMagic = 0xfade0cc0;
inline constexpr std::uint32_t kRequirementsMagic = 0xfade0c01;
inline constexpr std::uint32_t kCodeDirectoryMagic = 0xfade0c02;

// Blob types in the super blob's index. A blob other than the code directory is
// also pinned by the special slot of the same number in the code directory.
inline constexpr std::uint32_t kCodeDirectoryType = 0;
inline constexpr std::uint32_t kInfoPlistSlot = 1;
inline constexpr std::uint32_t kRequirementsSlot = 2;
inline constexpr std::uint32_t kSpecialSlotCount = 2;

// 0x20100 is the layout the signing code of the iOS 7-8 generation calls current:
// the original directory plus a scatter offset (left zero). The later layouts add a
// team identifier, a 64-bit code limit and the executable segment for newer systems;
// an ad-hoc signature for these phones needs none of them, so it keeps their layout.
inline constexpr std::uint32_t kCodeDirectoryVersion = 0x20100;
inline constexpr std::uint32_t kAdhocFlag = 0x2;

inline constexpr std::uint8_t kSha1HashType = 1;
inline constexpr std::uint8_t kSha1HashSize = 20;
inline constexpr std::uint8_t kPageSizeLog2 = 12;
inline constexpr std::uint32_t kPageSize = 1u << kPageSizeLog2;

inline constexpr std::uint32_t kBlobHeaderSize = 8;          // magic, length
inline constexpr std::uint32_t kSuperBlobHeaderSize = 12;    // magic, length, count
inline constexpr std::uint32_t kBlobIndexEntrySize = 8;      // type, offset
inline constexpr std::uint32_t kEmptyRequirementsSize = 12;  // magic, length, count = 0

// Byte offsets of the code directory's fields, version 0x20100.
namespace cd {
inline constexpr std::uint32_t kMagic = 0;
inline constexpr std::uint32_t kLength = 4;
inline constexpr std::uint32_t kVersion = 8;
inline constexpr std::uint32_t kFlags = 12;
inline constexpr std::uint32_t kHashOffset = 16;
inline constexpr std::uint32_t kIdentOffset = 20;
inline constexpr std::uint32_t kSpecialSlots = 24;
inline constexpr std::uint32_t kCodeSlots = 28;
inline constexpr std::uint32_t kCodeLimit = 32;
inline constexpr std::uint32_t kHashSize = 36;
inline constexpr std::uint32_t kHashType = 37;
inline constexpr std::uint32_t kPlatform = 38;
inline constexpr std::uint32_t kPageSizeLog2 = 39;
inline constexpr std::uint32_t kSpare2 = 40;
inline constexpr std::uint32_t kScatterOffset = 44;
inline constexpr std::uint32_t kHeaderSize = 48;
}  // namespace cd

// The linker reserves signature space in 16-byte units; so do we.
inline constexpr std::uint32_t kSignatureAlignment = 16;

}  // namespace tessel::signing
