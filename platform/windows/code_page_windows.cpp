#include "platform/windows/code_page_windows.h"

#include <windows.h>

namespace tarvo {

bool WindowsCodePage::HasOneByteCharacters() {
  CPINFO info = {};
  return GetCPInfo(CP_ACP, &info) != FALSE && info.MaxCharSize == 1;
}

bool WindowsCodePage::IsLeadByte(unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; }

std::string WindowsCodePage::Lowered(std::string text) {
  if (!text.empty()) CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::string WindowsCodePage::Raised(std::string text) {
  if (!text.empty()) CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

}  // namespace tarvo
