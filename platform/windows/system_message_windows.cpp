#include "platform/windows/system_message_windows.h"

namespace tarvo {

std::string SystemMessage(DWORD error) {
  char buffer[512] = {};
  const DWORD length = FormatMessageA(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, error, 0, buffer, sizeof(buffer), nullptr);
  std::string text(buffer, length);
  while (!text.empty() && (text.back() == ' ' || text.back() == '.')) text.pop_back();
  return text.empty() ? "System error " + std::to_string(error) : text;
}

}  // namespace tarvo
