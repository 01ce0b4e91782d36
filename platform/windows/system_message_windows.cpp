#include "platform/windows/system_message_windows.h"

#include <cstdio>

namespace tarvo {
namespace {

/// Results of components are known by their eight hexadecimal digits.
std::string NumberText(DWORD error) {
  char text[16] = {};
  std::snprintf(text, sizeof(text), (error & 0x80000000UL) != 0 ? "0x%08lX" : "%lu", error);
  return text;
}

}  // namespace

std::string SystemMessage(DWORD error) {
  char buffer[512] = {};
  const DWORD length = FormatMessageA(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, error, 0, buffer, sizeof(buffer), nullptr);
  std::string text(buffer, length);
  while (!text.empty() && (text.back() == ' ' || text.back() == '.')) text.pop_back();
  return text.empty() ? "System error " + NumberText(error) : text;
}

}  // namespace tarvo
