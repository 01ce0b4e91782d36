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

}  // namespace tarvo
