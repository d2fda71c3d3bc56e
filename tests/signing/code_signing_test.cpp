#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "phone/signing/input_error.h"
#include "phone/signing/sha1.h"
#include "phone/signing/signer.h"
#include "phone/signing/verifier.h"
#include "tests/signing/test_dylib.h"

namespace tessel::signing {
namespace {

using testing::DylibFields;
using testing::makeTestDylib;
using testing::readDylibFields;
using testing::TestDylibShape;

std::uint32_t be32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return (std::uint32_t{bytes[at]} << 24) | (std::uint32_t{bytes[at + 1]} << 16) | (std::uint32_t{bytes[at + 2]} << 8) |
         bytes[at + 3];
}

// The code directory of a signed image, found through the super blob's index.
std::span<const std::uint8_t> codeDirectoryOf(std::span<const std::uint8_t> image) {
  const auto signature = image.subspan(readDylibFields(image).signatureOffset);
  for (std::uint32_t i = 0; i < be32(signature, 8); ++i) {
    if (be32(signature, 12 + 8 * i) == 0) {
      const std::uint32_t offset = be32(signature, 16 + 8 * i);
      return signature.subspan(offset, be32(signature, offset + 4));
    }
  }
  ADD_FAILURE() << "no code directory";
  return {};
}

std::span<const std::uint8_t> hashAt(std::span<const std::uint8_t> codeDirectory, std::int64_t slot) {
  return codeDirectory.subspan(static_cast<std::size_t>(be32(codeDirectory, 16) + slot * 20), 20);
}

TEST(CodeSigning, SignedDylibVerifies) {
  const auto image = makeTestDylib();
  const auto signedImage = signImage(image);
  const Verification verification = verifyImage(signedImage);
  ASSERT_TRUE(verification.valid) << verification.problem;
  EXPECT_EQ(verification.identifier, "com.orvalt.tessellite");
  EXPECT_EQ(verification.codeLimit, readDylibFields(image).signatureOffset);
  EXPECT_EQ(verification.codeSlots, (verification.codeLimit + 4095) / 4096);
  EXPECT_EQ(verification.cdHash, sha1(codeDirectoryOf(signedImage)));
}

TEST(CodeSigning, SignatureIsAnAdhocSha1CodeDirectoryWithEmptyRequirements) {
  const auto signedImage = signImage(makeTestDylib());
  const DylibFields fields = readDylibFields(signedImage);
  EXPECT_EQ(signedImage.size(), std::size_t{fields.signatureOffset} + fields.signatureSize);
  EXPECT_EQ(fields.signatureSize % 16, 0u);

  const auto signature = std::span(signedImage).subspan(fields.signatureOffset);
  EXPECT_EQ(be32(signature, 0), 0xfade0cc0u);
  ASSERT_EQ(be32(signature, 8), 2u) << "code directory and requirements, no CMS blob";
  EXPECT_EQ(be32(signature, 12), 0u);
  EXPECT_EQ(be32(signature, 20), 2u);
  const std::vector<std::uint8_t> emptyRequirements = {0xfa, 0xde, 0x0c, 0x01, 0, 0, 0, 12, 0, 0, 0, 0};
  const auto requirements = signature.subspan(be32(signature, 24), 12);
  EXPECT_TRUE(std::ranges::equal(requirements, emptyRequirements));
  EXPECT_EQ(be32(signature, 4), be32(signature, 24) + 12) << "super blob length";

  const auto directory = codeDirectoryOf(signedImage);
  EXPECT_EQ(be32(directory, 0), 0xfade0c02u);
  EXPECT_EQ(be32(directory, 8), 0x20100u) << "version";
  EXPECT_EQ(be32(directory, 12), 0x2u) << "flags: ad-hoc";
  EXPECT_EQ(be32(directory, 24), 2u) << "special slots";
  const std::uint32_t codeLimit = be32(directory, 32);
  EXPECT_EQ(codeLimit, fields.signatureOffset);
  EXPECT_EQ(be32(directory, 28), (codeLimit + 4095) / 4096);
  EXPECT_EQ(directory[36], 20) << "hash size";
  EXPECT_EQ(directory[37], 1) << "hash type SHA-1";
  EXPECT_EQ(directory[39], 12) << "log2 page size";
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(directory.data() + be32(directory, 20))),
            "com.orvalt.tessellite");

  EXPECT_TRUE(std::ranges::equal(hashAt(directory, -2), sha1(emptyRequirements)));
  EXPECT_TRUE(std::ranges::all_of(hashAt(directory, -1), [](std::uint8_t byte) { return byte == 0; }));
  const auto image = std::span<const std::uint8_t>(signedImage);
  EXPECT_TRUE(std::ranges::equal(hashAt(directory, 0), sha1(image.first(4096))));
  const std::uint32_t lastPage = be32(directory, 28) - 1;
  EXPECT_TRUE(std::ranges::equal(hashAt(directory, lastPage),
                                 sha1(image.subspan(lastPage * 4096, codeLimit - lastPage * 4096))))
      << "the last page is partial";
}

TEST(CodeSigning, LinkeditSizesDescribeTheNewSignature) {
  for (bool rounded : {false, true}) {
    const auto image = makeTestDylib({.reservedSignatureBytes = 2000, .linkeditVmSizeRounded = rounded});
    const auto signedImage = signImage(image);
    const DylibFields before = readDylibFields(image);
    const DylibFields after = readDylibFields(signedImage);
    EXPECT_LT(after.signatureSize, before.signatureSize);
    EXPECT_EQ(after.signatureOffset, before.signatureOffset);
    EXPECT_EQ(after.linkeditFileOffset, before.linkeditFileOffset);
    EXPECT_EQ(after.linkeditFileOffset + after.linkeditFileSize, signedImage.size());
    if (rounded) {
      EXPECT_EQ(after.linkeditVmSize, (after.linkeditFileSize + 0x3fff) / 0x4000 * 0x4000);
    } else {
      EXPECT_EQ(after.linkeditVmSize, after.linkeditFileSize);
    }
  }
}

TEST(CodeSigning, ResultDependsOnlyOnTheBytesBeforeTheSignature) {
  const auto small = signImage(makeTestDylib({.reservedSignatureBytes = 16}));
  const auto large = signImage(makeTestDylib({.reservedSignatureBytes = 8000}));
  EXPECT_EQ(small, large);
}

TEST(CodeSigning, ResigningGivesIdenticalBytes) {
  const auto once = signImage(makeTestDylib());
  EXPECT_EQ(signImage(once), once);
  EXPECT_EQ(signImage(makeTestDylib()), once);
}

TEST(CodeSigning, GrowingByAPageResignsToOneMoreSlot) {
  const auto signedImage = signImage(makeTestDylib());
  const auto grown = testing::growLinkeditData(signedImage, 4096);
  EXPECT_FALSE(verifyImage(grown).valid);
  const auto resigned = signImage(grown);
  const Verification before = verifyImage(signedImage);
  const Verification after = verifyImage(resigned);
  ASSERT_TRUE(after.valid) << after.problem;
  EXPECT_EQ(after.codeSlots, before.codeSlots + 1);
  EXPECT_EQ(after.codeLimit, before.codeLimit + 4096);
}

TEST(CodeSigning, CustomIdentifierIsRecorded) {
  const Verification verification = verifyImage(signImage(makeTestDylib(), "org.example.probe"));
  ASSERT_TRUE(verification.valid) << verification.problem;
  EXPECT_EQ(verification.identifier, "org.example.probe");
  EXPECT_THROW(signImage(makeTestDylib(), "has space"), InputError);
  EXPECT_THROW(signImage(makeTestDylib(), ""), InputError);
}

TEST(CodeSigning, FlippedByteFailsVerification) {
  const auto signedImage = signImage(makeTestDylib({.textBytes = 5 * 4096}));
  const std::uint32_t codeLimit = readDylibFields(signedImage).signatureOffset;
  std::vector<std::size_t> offsets = {testing::kTestDylibTextVmAddrAt, testing::kTestDylibHeadersEnd, codeLimit - 1};
  for (std::size_t page = 1; page * 4096 < codeLimit; ++page) {
    offsets.push_back(page * 4096);
    offsets.push_back(std::min<std::size_t>(page * 4096 + 4095, codeLimit - 1));
  }
  for (std::size_t offset : offsets) {
    auto tampered = signedImage;
    tampered[offset] ^= 0x01;
    const Verification verification = verifyImage(tampered);
    EXPECT_FALSE(verification.valid) << "byte " << offset;
    EXPECT_TRUE(verification.problem.starts_with("page " + std::to_string(offset / 4096) + " "))
        << "byte " << offset << ": " << verification.problem;
  }
}

TEST(CodeSigning, FlippedCodeDirectoryBitFailsVerification) {
  const auto signedImage = signImage(makeTestDylib());
  const auto directory = codeDirectoryOf(signedImage);
  const std::size_t directoryAt = static_cast<std::size_t>(directory.data() - signedImage.data());
  const std::size_t identifierBegin = be32(directory, 20);
  const std::size_t identifierEnd = identifierBegin + std::string_view("com.orvalt.tessellite").size();
  for (std::size_t at = 0; at < directory.size(); ++at) {
    // A letter of the identifier may become another valid letter: only the CDHash pins it.
    if (at >= identifierBegin && at < identifierEnd) continue;
    for (int bit = 0; bit < 8; ++bit) {
      auto tampered = signedImage;
      tampered[directoryAt + at] ^= std::uint8_t(1u << bit);
      EXPECT_FALSE(verifyImage(tampered).valid) << "code directory byte " << at << " bit " << bit;
    }
  }
}

TEST(CodeSigning, NoInvertedByteOfTheFileIsAccepted) {
  const auto signedImage = signImage(makeTestDylib({.textBytes = 4096 + 512}));
  const std::size_t signatureAt = readDylibFields(signedImage).signatureOffset;
  const std::size_t superBlobEnd = signatureAt + be32(signedImage, signatureAt + 4);
  ASSERT_LE(superBlobEnd, signedImage.size());
  // Bytes past the super blob are the zero padding of the reserved space: nothing reads them.
  for (std::size_t at = 0; at < superBlobEnd; ++at) {
    auto tampered = signedImage;
    tampered[at] ^= 0xff;
    try {
      EXPECT_FALSE(verifyImage(tampered).valid) << "byte " << at;
    } catch (const InputError&) {
      // Headers no longer readable: also a rejection.
    }
  }
}

TEST(CodeSigning, FlippedRequirementsByteFailsVerificationNamingItsSlot) {
  auto tampered = signImage(makeTestDylib());
  const std::size_t signatureAt = readDylibFields(tampered).signatureOffset;
  const std::size_t requirementsAt = signatureAt + be32(tampered, signatureAt + 24);
  tampered[requirementsAt + 11] ^= 0x01;
  const Verification verification = verifyImage(tampered);
  EXPECT_FALSE(verification.valid);
  EXPECT_EQ(verification.problem, "special slot -2 (requirements) does not match its hash");
}

TEST(CodeSigning, TheLinkersSha256SignatureIsNotAccepted) {
  const auto signedImage = signImage(makeTestDylib());
  auto sha256Style = signedImage;
  const std::size_t hashTypeAt =
      static_cast<std::size_t>(codeDirectoryOf(signedImage).data() - signedImage.data()) + 37;
  sha256Style[hashTypeAt] = 2;
  const Verification verification = verifyImage(sha256Style);
  EXPECT_FALSE(verification.valid);
  EXPECT_EQ(verification.problem, "code directory hash type is 0x2, expected 0x1");
}

TEST(CodeSigning, UnusableFilesAreRejectedNamingTheProblem) {
  const auto good = makeTestDylib();
  auto thirtyTwoBit = good;
  thirtyTwoBit[0] = 0xce;
  auto trailingBytes = good;
  trailingBytes.push_back(0);
  struct Case {
    std::string name;
    std::vector<std::uint8_t> bytes;
    std::string expected;
  };
  const std::vector<Case> cases = {
      {"empty", {}, "not a Mach-O file"},
      {"text", {'h', 'e', 'l', 'l', 'o', '\n'}, "not a Mach-O file"},
      {"32-bit", thirtyTwoBit, "32-bit"},
      {"fat", {0xca, 0xfe, 0xba, 0xbe, 0, 0, 0, 2}, "fat (universal)"},
      {"cut in the header", std::vector<std::uint8_t>(good.begin(), good.begin() + 20), "truncated"},
      {"cut in the load commands", std::vector<std::uint8_t>(good.begin(), good.begin() + 100), "truncated"},
      {"cut in the signature", std::vector<std::uint8_t>(good.begin(), good.end() - 1), "truncated"},
      {"no LC_CODE_SIGNATURE", makeTestDylib({.withCodeSignatureCommand = false}), "no LC_CODE_SIGNATURE"},
      {"bytes after the signature", trailingBytes, "follow __LINKEDIT"},
  };
  for (const auto& testCase : cases) {
    try {
      signImage(testCase.bytes);
      ADD_FAILURE() << testCase.name << ": signed";
    } catch (const InputError& error) {
      EXPECT_NE(std::string(error.what()).find(testCase.expected), std::string::npos)
          << testCase.name << ": " << error.what();
    }
  }
}

}  // namespace
}  // namespace tessel::signing
