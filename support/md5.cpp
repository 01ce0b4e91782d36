#include "support/md5.h"

#include <algorithm>
#include <bit>

namespace tarvo {
namespace {

// RFC 1321, section 3.4: floor(4294967296 * |sin(i)|) for i = 1 to 64, i in radians.
constexpr std::array<std::uint32_t, 64> kSines = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

// The rotations of the four rounds, four steps each, repeated.
constexpr int kRotations[4][4] = {
    {7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

std::uint32_t WordAt(const std::uint8_t* bytes) {
  return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
         std::uint32_t{bytes[3]} << 24;
}

struct Step {
  std::uint32_t mix;
  std::size_t word;
};

/// The auxiliary function of the step's round and the word of the block that it takes.
Step StepAt(std::size_t i, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
  switch (i / 16) {
    case 0:
      return {(b & c) | (~b & d), i};
    case 1:
      return {(b & d) | (c & ~d), (5 * i + 1) % 16};
    case 2:
      return {b ^ c ^ d, (3 * i + 5) % 16};
    default:
      return {c ^ (b | ~d), (7 * i) % 16};
  }
}

}  // namespace

std::string clsMD5::DigestStrToHexStr(std::string_view Text) {
  MD5Init();
  MD5Update(Text.size(), reinterpret_cast<const std::uint8_t*>(Text.data()));
  MD5Final();
  return GetValues();
}

void clsMD5::MD5Init() {
  state_ = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
  length_ = 0;
}

void clsMD5::MD5Update(std::size_t Length, const std::uint8_t* Bytes) {
  while (Length > 0) {
    const std::size_t filled = length_ % kBlockSize;
    const std::size_t taken = std::min(Length, kBlockSize - filled);
    std::copy_n(Bytes, taken, pending_.begin() + static_cast<std::ptrdiff_t>(filled));
    length_ += taken;
    Bytes += taken;
    Length -= taken;
    if (length_ % kBlockSize == 0) Transform(pending_.data());
  }
}

void clsMD5::MD5Final() {
  const std::uint64_t bits = length_ * 8;
  const std::uint8_t one = 0x80;
  const std::uint8_t zero = 0;
  MD5Update(1, &one);
  while (length_ % kBlockSize != kBlockSize - 8) MD5Update(1, &zero);
  for (int shift = 0; shift < 64; shift += 8) {
    const auto byte = static_cast<std::uint8_t>(bits >> shift);
    MD5Update(1, &byte);
  }
}

std::string clsMD5::GetValues() const {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text;
  for (std::uint32_t word : state_) {
    for (int shift = 0; shift < 32; shift += 8) {
      text += digits[word >> (shift + 4) & 15];
      text += digits[word >> shift & 15];
    }
  }
  return text;
}

std::uint32_t clsMD5::LongLeftRotate(std::uint32_t Value, int Bits) {
  return std::rotl(Value, Bits);
}

std::string clsMD5::SignedText(std::size_t word) const {
  return std::to_string(static_cast<std::int32_t>(state_[word]));
}

void clsMD5::Transform(const std::uint8_t* block) {
  auto [a, b, c, d] = state_;
  for (std::size_t i = 0; i < kSines.size(); ++i) {
    const Step step = StepAt(i, b, c, d);
    const std::uint32_t sum = a + step.mix + kSines[i] + WordAt(block + 4 * step.word);
    a = d;
    d = c;
    c = b;
    b += LongLeftRotate(sum, kRotations[i / 16][i % 4]);
  }
  state_[0] += a;
  state_[1] += b;
  state_[2] += c;
  state_[3] += d;
}

}  // namespace tarvo
