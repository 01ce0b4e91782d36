#pragma once

#include <string>

#include "platform/code_page.h"

namespace tarvo {

/// The system's code page: the western one, 1252, until a test takes 1251, 932, 936, 949 or 950. Of
/// the last four it knows the capitals of the full-width Latin, the Greek and the Cyrillic letters.
class SimCodePage final : public CodePage {
 public:
  bool HasOneByteCharacters() override { return number_ > 1000; }
  bool IsLeadByte(unsigned char byte) override;
  std::string Lowered(std::string text) override;
  std::string Raised(std::string text) override;
  /// As this machine's own conversions know the code page; U+FFFD for what is no character.
  std::string ToUtf8(std::string_view text) override;

  void Use(int number) { number_ = number; }

 private:
  using Change = unsigned (SimCodePage::*)(unsigned) const;

  std::string Changed(std::string text, Change change);
  unsigned LoweredCharacter(unsigned character) const;
  unsigned RaisedCharacter(unsigned character) const;

  int number_ = 1252;
};

}  // namespace tarvo
