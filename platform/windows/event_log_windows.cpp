#include "platform/windows/event_log_windows.h"

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

constexpr std::size_t kLongestRecord = 31839;
constexpr const char* kSource = "Tarvo Launcher";

struct EventSourceTraits {
  using Value = HANDLE;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { DeregisterEventSource(value); }
};

}  // namespace

void WindowsEventLog::WriteError(const std::string& text) { Report(text); }

void WindowsEventLog::WriteUnicodeError(std::u16string_view text) { ReportUnicode(text); }

bool WindowsEventLog::Report(const std::string& text) {
  const UniqueHandle<EventSourceTraits> source(RegisterEventSourceA(nullptr, kSource));
  if (!source.Valid()) return false;
  const std::string shown = text.substr(0, kLongestRecord);
  const char* strings[] = {shown.c_str()};
  return ReportEventA(source.Get(), EVENTLOG_ERROR_TYPE, 0, 0, nullptr, 1, 0, strings, nullptr) !=
         0;
}

bool WindowsEventLog::ReportUnicode(std::u16string_view text) {
  const UniqueHandle<EventSourceTraits> source(RegisterEventSourceA(nullptr, kSource));
  if (!source.Valid()) return false;
  const std::u16string_view shown = text.substr(0, kLongestRecord);
  const std::wstring wide(shown.begin(), shown.end());
  const wchar_t* strings[] = {wide.c_str()};
  return ReportEventW(source.Get(), EVENTLOG_ERROR_TYPE, 0, 0, nullptr, 1, 0, strings, nullptr) !=
         0;
}

}  // namespace tarvo
