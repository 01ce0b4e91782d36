// The log file of the day.
#include <windows.h>

#include <cctype>
#include <cstdio>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/stories.h"

namespace tarvo::acceptance {
namespace {

/// All lines of the story belong into one day's file.
std::string TodaysFile(const Desk& desk) {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  if (now.wHour == 23 && now.wMinute >= 58) throw Skipped("the day is over in a moment");
  char name[32];
  std::snprintf(name, sizeof name, "%04d%02d%02d.log", now.wYear, now.wMonth, now.wDay);
  return desk.TheRoot().Path(name);
}

bool Holds(const std::string& file, const char* part) {
  return ReadBytes(file).find(part) != std::string::npos;
}

/// "2026-01-31 10:00:15: " stands before it.
bool HasStamp(const std::string& line) {
  const std::string form = "dddd-dd-dd dd:dd:dd: ";
  if (line.size() < form.size()) return false;
  for (std::size_t i = 0; i < form.size(); ++i) {
    const bool digit = std::isdigit(static_cast<unsigned char>(line[i])) != 0;
    if (form[i] == 'd' ? !digit : line[i] != form[i]) return false;
  }
  return line.starts_with("20");
}

void ExpectLastLine(const std::string& file) {
  const std::string text = ReadBytes(file);
  Expect(text.ends_with("Launcher Ready!\r\n"), "the file ends otherwise:\r\n" + text);
  const std::string line = text.substr(text.rfind("\r\n", text.size() - 3) + 2);
  Expect(HasStamp(line) && line.substr(21).starts_with("Launcher "), "no stamp: " + line);
}

/// Each line of the log comes to the level that is wanted, or stays out.
void ExpectLevels(Desk& desk, const std::string& file) {
  desk.Choose("LogH", -1, "Errors & Warn & Extra");
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(10), "Login Server Started!");
  Expect(!Holds(file, "Started"), "a green line is in the file");
  desk.Choose("Prior", 0, "Norm");
  desk.ExpectLog(seconds(5), "Login Server running with Norm priority.");
  Expect(Holds(file, "running with Norm priority."), "an orange line is missing in the file");
  desk.Choose("LogH", -1, "Only Errors");
  desk.Tell("login", sample::kCrash);
  desk.ExpectLog(seconds(10), "Login Server crashed, restarting...");
  Expect(!Holds(file, "crashed"), "a red line is in the file");
}

}  // namespace

void LogFile(Desk& desk) {
  const std::string file = TodaysFile(desk);
  desk.WriteSettings({{"WriteLog", "1"}, {"WriteMode", "0"}});
  desk.StartLauncher();
  desk.ExpectLog(seconds(10), "Launcher Ready!");
  ExpectLastLine(file);
  ExpectLevels(desk, file);
  desk.Uncheck("WLog");
  desk.Choose("LogH", -1, "Everything");
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(10), "Login Server Stopped!");
  Expect(!Holds(file, "Stopped"), "a line is in the file though none is wanted");
  // A file that cannot be written stops nothing.
  DeleteFileA(file.c_str());
  Expect(CreateDirectoryA(file.c_str(), nullptr), "no folder in the file's place");
  desk.Check("WLog");
  desk.Click("bStart", 0);
  desk.ExpectLogCount(seconds(10), "Login Server Started!", 3);
  desk.Click("bStart", 0);
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
