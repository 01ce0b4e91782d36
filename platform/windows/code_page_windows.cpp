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

std::string WindowsCodePage::ToUtf8(std::string_view text) { return Utf8Of(WideTextOf(text)); }

std::string Utf8Of(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  std::string utf8(wide.size() * 3, '\0');  // A pair of two needs four bytes.
  const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(),
                                       static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(size));
  return utf8;
}

std::string TextOf(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  std::string text(wide.size() * 4, '\0');  // No code page needs more bytes for a letter.
  const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(),
                                       static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(size));
  return text;
}

std::wstring WideTextOf(std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(size));
  return wide;
}

}  // namespace tarvo
