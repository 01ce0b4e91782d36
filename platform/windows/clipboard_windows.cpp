#include "platform/windows/clipboard_windows.h"

#include <windows.h>

#include <cstring>

#include "platform/windows/code_page_windows.h"

namespace tarvo {
namespace {

constexpr int kMostOpenings = 10;
constexpr DWORD kBetweenTries = 20;  // Milliseconds.

bool OpenPatiently() {
  for (int i = 0; i < kMostOpenings; ++i) {
    if (OpenClipboard(nullptr) != 0) return true;
    Sleep(kBetweenTries);
  }
  return false;
}

/// Memory of the system's with the text and its end mark; nullptr when there is none.
HGLOBAL Copied(const std::wstring& text) {
  const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  void* const bytes = memory ? GlobalLock(memory) : nullptr;
  if (!bytes) {
    GlobalFree(memory);
    return nullptr;
  }
  std::memcpy(bytes, text.c_str(), size);
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

bool WindowsClipboard::PutText(const std::string& text) {
  const HGLOBAL memory = Copied(WideTextOf(text));
  if (!memory) return false;
  bool done = false;
  if (OpenPatiently()) {
    EmptyClipboard();
    // The clipboard owns the memory that it takes.
    done = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
  }
  if (!done) GlobalFree(memory);
  return done;
}

}  // namespace tarvo
