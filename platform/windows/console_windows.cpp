#include "platform/windows/console_windows.h"

#include <algorithm>
#include <string_view>

#include "platform/windows/code_page_windows.h"

namespace tarvo {
namespace {

/// Older systems take no more at once: a console's calls share a small heap.
constexpr std::size_t kMostAtOnce = 8192;

std::string WithLineEnds(const std::string& text) {
  std::string whole;
  for (const char c : text) {
    if (c == '\n' && !whole.ends_with('\r')) whole += '\r';
    whole += c;
  }
  return whole;
}

std::wstring WideOfUtf8(const std::string& utf8) {
  const int length = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(size));
  return wide;
}

bool WriteBytes(HANDLE handle, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (!WriteFile(handle, bytes.data(), size, &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

bool WriteLetters(HANDLE handle, std::wstring_view letters) {
  while (!letters.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(letters.size(), kMostAtOnce));
    if (!WriteConsoleW(handle, letters.data(), count, &written, nullptr) || written == 0) {
      return false;
    }
    letters.remove_prefix(written);
  }
  return true;
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != FALSE;
}

/// A handle that the program was started with, if it leads anywhere. What a console program hands
/// on to one of the window subsystem may be the number of its own console, which means nothing
/// here.
bool Leads(HANDLE handle) {
  SetLastError(NO_ERROR);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
         (GetFileType(handle) != FILE_TYPE_UNKNOWN || GetLastError() == NO_ERROR);
}

}  // namespace

bool WindowsConsole::PrintText(OutputStream stream, const std::string& text) {
  const Target& target = TargetOf(stream);
  const std::string whole = WithLineEnds(text);
  if (target.isConsole) return WriteLetters(target.handle, WideTextOf(whole));
  return target.handle == INVALID_HANDLE_VALUE || WriteBytes(target.handle, whole);
}

bool WindowsConsole::PrintUtf8(OutputStream stream, const std::string& utf8) {
  const Target& target = TargetOf(stream);
  if (target.isConsole) return WriteLetters(target.handle, WideOfUtf8(WithLineEnds(utf8)));
  return target.handle == INVALID_HANDLE_VALUE || WriteBytes(target.handle, utf8);
}

const WindowsConsole::Target& WindowsConsole::TargetOf(OutputStream stream) {
  Target& target = targets_[stream == OutputStream::Output ? 0 : 1];
  if (target.found) return target;
  target.found = true;
  const HANDLE given =
      GetStdHandle(stream == OutputStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  if (!Leads(given)) {
    target.handle = ConsoleOutput();
  } else {
    // The parent's own console can be written to only by who has joined it.
    if (GetFileType(given) == FILE_TYPE_CHAR) AttachConsole(ATTACH_PARENT_PROCESS);
    target.handle = given;
  }
  target.isConsole = IsConsole(target.handle);
  return target;
}

HANDLE WindowsConsole::ConsoleOutput() {
  if (!console_.Valid()) {
    AttachConsole(ATTACH_PARENT_PROCESS);  // Fails where the parent has none: so does the next.
    console_ = KernelHandle(CreateFileA("CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                        0, nullptr));
  }
  return console_.Valid() ? console_.Get() : INVALID_HANDLE_VALUE;
}

}  // namespace tarvo
