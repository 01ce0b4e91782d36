#pragma once

#include "platform/code_page.h"

namespace tarvo {

class WindowsCodePage final : public CodePage {
 public:
  bool HasOneByteCharacters() override;
  bool IsLeadByte(unsigned char byte) override;
  std::string Lowered(std::string text) override;
  std::string Raised(std::string text) override;
};

/// The text in the system's code page; a letter that it does not have becomes another.
std::string TextOf(const std::wstring& wide);
std::wstring WideTextOf(const std::string& text);

}  // namespace tarvo
