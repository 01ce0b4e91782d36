#pragma once

#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace tarvo {

class WindowsCodePage final : public CodePage {
 public:
  bool HasOneByteCharacters() override;
  bool IsLeadByte(unsigned char byte) override;
  std::string Lowered(std::string text) override;
  std::string Raised(std::string text) override;
  std::string ToUtf8(std::string_view text) override;
};

/// The text in the system's code page; a letter that it does not have becomes another.
std::string TextOf(std::wstring_view wide);
std::wstring WideTextOf(std::string_view text);
std::string Utf8Of(std::wstring_view wide);

}  // namespace tarvo
