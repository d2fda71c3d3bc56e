#include "phone/signing/sha1.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tessel::signing {
namespace {

std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(Sha1, PublishedTestVectors) {
  struct Vector {
    std::string message;
    std::string digest;
  };
  const std::vector<Vector> vectors = {
      {"abc", "a9993e364706816aba3e25717850c26c9cd0d89d"},
      {"", "da39a3ee5e6b4b0d3255bfef95601890afd80709"},
      {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", "84983e441c3bd26ebaae4aa1f95129e5e54670f1"},
      {"abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrst"
       "u",
       "a49b2446a02c645bf419f995b67091253a04a259"},
      {std::string(1'000'000, 'a'), "34aa973cd4c4daa4f61eeb2bdbad27316534016f"},
  };
  for (const auto& vector : vectors) {
    EXPECT_EQ(toHex(sha1(bytesOf(vector.message))), vector.digest)
        << "message of " << vector.message.size() << " bytes";
  }
}

TEST(Sha1, UpdatesInPiecesMatchOneUpdate) {
  // Piece sizes straddle the 64-byte block and the 56-byte padding boundary.
  const std::string message(1'000'000, 'a');
  for (std::size_t piece : {1u, 55u, 56u, 63u, 64u, 65u, 4095u}) {
    Sha1 hasher;
    for (std::size_t at = 0; at < message.size(); at += piece) {
      hasher.update(bytesOf(std::string_view(message).substr(at, piece)));
    }
    EXPECT_EQ(toHex(hasher.finish()), "34aa973cd4c4daa4f61eeb2bdbad27316534016f") << "pieces of " << piece;
  }
}

TEST(Sha1, MessagesAroundThePaddingBoundaries) {
  // Reference digests of 'a' repeated n times, from coreutils sha1sum.
  const std::vector<std::pair<std::size_t, std::string>> cases = {
      {55, "c1c8bbdc22796e28c0e15163d20899b65621d65a"},  {56, "c2db330f6083854c99d4b5bfb6e8f29f201be699"},
      {63, "03f09f5b158a7a8cdad920bddc29b81c18a551f5"},  {64, "0098ba824b5c16427bd7a1122a5a442a25ec644d"},
      {65, "11655326c708d70319be2610e8a57d9a5b959d3b"},  {119, "ee971065aaa017e0632a8ca6c77bb3bf8b1dfc56"},
      {120, "f34c1488385346a55709ba056ddd08280dd4c6d6"},
  };
  for (const auto& [length, digest] : cases) {
    EXPECT_EQ(toHex(sha1(bytesOf(std::string(length, 'a')))), digest) << length << " bytes";
  }
}

}  // namespace
}  // namespace tessel::signing
