#include "platform/windows/code_page_windows.h"

#include <windows.h>

namespace tarvo {

bool WindowsCodePage::IsLeadByte(unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; }

std::string WindowsCodePage::Lowered(std::string text) {
  if (!text.empty()) CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

}  // namespace tarvo
