#include "phone/signing/sha1.h"

#include <algorithm>
#include <bit>

namespace tessel::signing {
namespace {

std::uint32_t loadBigEndian32(const std::uint8_t* bytes) {
  return (std::uint32_t{bytes[0]} << 24) | (std::uint32_t{bytes[1]} << 16) | (std::uint32_t{bytes[2]} << 8) |
         std::uint32_t{bytes[3]};
}

}  // namespace

Sha1::Sha1() : state_{0x67452301u, 0xefcdab89u, 0x98badcfeu, 0x10325476u, 0xc3d2e1f0u} {}

void Sha1::update(std::span<const std::uint8_t> bytes) {
  totalBytes_ += bytes.size();
  if (buffered_ > 0) {
    const std::size_t taken = std::min(bytes.size(), buffer_.size() - buffered_);
    std::copy_n(bytes.begin(), taken, buffer_.begin() + static_cast<std::ptrdiff_t>(buffered_));
    buffered_ += taken;
    bytes = bytes.subspan(taken);
    if (buffered_ < buffer_.size()) return;
    compressBlock(buffer_.data());
    buffered_ = 0;
  }
  while (bytes.size() >= buffer_.size()) {
    compressBlock(bytes.data());
    bytes = bytes.subspan(buffer_.size());
  }
  std::copy(bytes.begin(), bytes.end(), buffer_.begin());
  buffered_ = bytes.size();
}

Sha1Digest Sha1::finish() {
  const std::uint64_t totalBits = totalBytes_ * 8;
  std::array<std::uint8_t, 72> padding{};
  padding[0] = 0x80;
  // Pad to 56 mod 64, leaving room for the 64-bit length.
  const std::size_t padLength = (buffered_ < 56 ? 56 : 120) - buffered_;
  for (int i = 0; i < 8; ++i)
    padding[padLength + static_cast<std::size_t>(i)] = std::uint8_t(totalBits >> (56 - 8 * i));
  update(std::span(padding).first(padLength + 8));

  Sha1Digest digest;
  for (std::size_t i = 0; i < state_.size(); ++i) {
    for (std::size_t b = 0; b < 4; ++b) digest[4 * i + b] = std::uint8_t(state_[i] >> (24 - 8 * b));
  }
  return digest;
}

void Sha1::compressBlock(const std::uint8_t* block) {
  std::array<std::uint32_t, 80> w;
  for (std::size_t t = 0; t < 16; ++t) w[t] = loadBigEndian32(block + 4 * t);
  for (std::size_t t = 16; t < 80; ++t) w[t] = std::rotl(w[t - 3] ^ w[t - 8] ^ w[t - 14] ^ w[t - 16], 1);

  auto [a, b, c, d, e] = state_;
  for (std::size_t t = 0; t < 80; ++t) {
    std::uint32_t f;
    std::uint32_t k;
    if (t < 20) {
      f = (b & c) | (~b & d);
      k = 0x5a827999u;
    } else if (t < 40) {
      f = b ^ c ^ d;
      k = 0x6ed9eba1u;
    } else if (t < 60) {
      f = (b & c) | (b & d) | (c & d);
      k = 0x8f1bbcdcu;
    } else {
      f = b ^ c ^ d;
      k = 0xca62c1d6u;
    }
    const std::uint32_t next = std::rotl(a, 5) + f + e + k + w[t];
    e = d;
    d = c;
    c = std::rotl(b, 30);
    b = a;
    a = next;
  }
  state_[0] += a;
  state_[1] += b;
  state_[2] += c;
  state_[3] += d;
  state_[4] += e;
}

Sha1Digest sha1(std::span<const std::uint8_t> bytes) {
  Sha1 hasher;
  hasher.update(bytes);
  return hasher.finish();
}

std::string toHex(const Sha1Digest& digest) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  text.reserve(digest.size() * 2);
  for (std::uint8_t byte : digest) {
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 0x0f]);
  }
  return text;
}

}  // namespace tessel::signing
