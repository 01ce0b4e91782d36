// Entries in the application event log. Wine takes entries and keeps none, so there only their
// taking can be seen; on Windows they are read back.
#include "platform/windows/event_log_windows.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

struct LogHandleTraits {
  using Value = HANDLE;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { CloseEventLog(value); }
};

bool KeepsEntries() {
  const HMODULE library = GetModuleHandleA("ntdll.dll");
  return library != nullptr && GetProcAddress(library, "wine_get_version") == nullptr;
}

struct Entry {
  WORD type = 0;
  std::string source;
  std::string text;
};

Entry LatestEntry() {
  const UniqueHandle<LogHandleTraits> log(OpenEventLogA(nullptr, "Application"));
  std::vector<char> buffer(0x10000);
  DWORD got = 0;
  DWORD needed = 0;
  if (ReadEventLogA(log.Get(), EVENTLOG_SEQUENTIAL_READ | EVENTLOG_BACKWARDS_READ, 0, buffer.data(),
                    static_cast<DWORD>(buffer.size()), &got, &needed) == 0) {
    return {};
  }
  EVENTLOGRECORD record;
  std::memcpy(&record, buffer.data(), sizeof record);
  return {record.EventType, buffer.data() + sizeof record, buffer.data() + record.StringOffset};
}

std::u16string LatestUnicodeText() {
  const UniqueHandle<LogHandleTraits> log(OpenEventLogA(nullptr, "Application"));
  std::vector<char> buffer(0x10000);
  DWORD got = 0;
  DWORD needed = 0;
  if (ReadEventLogW(log.Get(), EVENTLOG_SEQUENTIAL_READ | EVENTLOG_BACKWARDS_READ, 0, buffer.data(),
                    static_cast<DWORD>(buffer.size()), &got, &needed) == 0) {
    return {};
  }
  EVENTLOGRECORD record;
  std::memcpy(&record, buffer.data(), sizeof record);
  std::u16string text;
  for (std::size_t at = record.StringOffset;; at += sizeof(char16_t)) {
    char16_t letter = 0;
    std::memcpy(&letter, buffer.data() + at, sizeof letter);
    if (letter == 0) return text;
    text += letter;
  }
}

TEST(EventLogWindows, TakesAnErrorOfTheLauncher) {
  WindowsEventLog log;
  const std::string text = "File not found: C:\\x\xF3.xml";
  EXPECT_TRUE(log.Report(text));
  log.WriteError(text);
  if (!KeepsEntries()) return;
  const Entry entry = LatestEntry();
  EXPECT_EQ(entry.type, EVENTLOG_ERROR_TYPE);
  EXPECT_EQ(entry.source, "Tarvo Launcher");
  EXPECT_EQ(entry.text, text);
}

TEST(EventLogWindows, TakesLettersThatTheCodePageMayLack) {
  WindowsEventLog log;
  const std::u16string text = u"Error en funci\u00F3n \u0416";
  EXPECT_TRUE(log.ReportUnicode(text));
  log.WriteUnicodeError(text);
  if (!KeepsEntries()) return;
  EXPECT_EQ(LatestUnicodeText(), text);
}

TEST(EventLogWindows, TakesTextsOfAnyLength) {
  WindowsEventLog log;
  EXPECT_TRUE(log.ReportUnicode(u""));
  EXPECT_TRUE(log.ReportUnicode(std::u16string(100000, u'x')));
  EXPECT_TRUE(log.Report(""));
  EXPECT_TRUE(log.Report(std::string(100000, 'x')));
  if (KeepsEntries()) {
    EXPECT_EQ(LatestEntry().text.size(), 31839u);
  }
}

}  // namespace
}  // namespace tarvo
