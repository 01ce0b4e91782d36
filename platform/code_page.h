#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// What is to be known of the system's ANSI code page.
class CodePage {
 public:
  virtual ~CodePage() = default;
  /// True when each byte is a character of its own, whatever its neighbours.
  virtual bool HasOneByteCharacters() = 0;
  /// True when this byte and the one after it make one character.
  virtual bool IsLeadByte(unsigned char byte) = 0;
  /// The text in lower case, letters outside of ASCII too.
  virtual std::string Lowered(std::string text) = 0;
  /// The text in upper case, likewise.
  virtual std::string Raised(std::string text) = 0;
  /// The text's letters as UTF-8. Bytes that are no character become a sign in their place; which
  /// one, the system decides.
  virtual std::string ToUtf8(std::string_view text) = 0;
};

}  // namespace tarvo
