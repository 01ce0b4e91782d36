#include "clipboard.h"

#include <windows.h>

#include "launcher.h"

namespace tarvo {

std::string ReadClipboard() {
  if (!OpenClipboard(nullptr)) throw OperatorError("the clipboard is in use");
  const HANDLE data = GetClipboardData(CF_TEXT);
  const auto* text = static_cast<const char*>(data ? GlobalLock(data) : nullptr);
  const std::string copy = text ? text : "";
  if (text) GlobalUnlock(data);
  CloseClipboard();
  if (!text) throw OperatorError("there is no text on the clipboard");
  return copy;
}

}  // namespace tarvo
