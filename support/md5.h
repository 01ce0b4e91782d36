#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvo {

/// The MD5 message digest (RFC 1321). It is for names, not for protection.
class clsMD5 {
 public:
  clsMD5() { MD5Init(); }

  /// The digest of the text's bytes as 32 upper-case hexadecimal digits, in one call.
  std::string DigestStrToHexStr(std::string_view Text);

  /// Begins a new message.
  void MD5Init();
  /// Adds the first `Length` of these bytes to the message.
  void MD5Update(std::size_t Length, const std::uint8_t* Bytes);
  /// Ends the message; the state words and `GetValues` hold its digest until the next `MD5Init`.
  void MD5Final();

  /// The state words A, B, C, D, each least significant byte first, in upper-case hexadecimal.
  std::string GetValues() const;

  /// One state word as signed decimal text.
  std::string RegisterA() const { return SignedText(0); }
  std::string RegisterB() const { return SignedText(1); }
  std::string RegisterC() const { return SignedText(2); }
  std::string RegisterD() const { return SignedText(3); }

  /// Rotates the 32 bits of a word to the left by 0 to 31.
  static std::uint32_t LongLeftRotate(std::uint32_t Value, int Bits);

 private:
  static constexpr std::size_t kBlockSize = 64;

  std::string SignedText(std::size_t word) const;
  void Transform(const std::uint8_t* block);

  std::array<std::uint32_t, 4> state_{};
  std::uint64_t length_ = 0;  ///< Bytes so far.
  std::array<std::uint8_t, kBlockSize> pending_{};
};

}  // namespace tarvo
