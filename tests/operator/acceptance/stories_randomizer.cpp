// The randomizer: now, at the map server's start, by its calendar.
#include <windows.h>

#include <cstdio>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/stories.h"

namespace tarvo::acceptance {
namespace {

constexpr char kServerFile[] = "conf\\battle_athena.conf";

std::string Document(const std::string& root, const std::string& elements) {
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" application=\"Tarvo Launcher\"?>\r\n<" +
         root + ">\r\n" + elements + "</" + root + ">\r\n";
}

std::string Range(const std::string& name, int from, int to) {
  return "\t<" + name + " Min=\"" + std::to_string(from) + "\" Max=\"" + std::to_string(to) +
         "\"/>\r\n";
}

void PutRanges(const Desk& desk, const std::string& ranges) {
  WriteBytes(desk.TheRoot().Path("randomize.xml"), Document("Randomize", ranges));
}

std::string ServerFile(const Desk& desk) { return ReadBytes(desk.TheRoot().Path(kServerFile)); }

void ExpectServerFile(const Desk& desk, const std::string& wanted, const std::string& when) {
  Expect(ServerFile(desk) == wanted, "the servers' file has other bytes " + when);
}

/// The number that stands behind the text in the log.
int DrawnBehind(const Desk& desk, const std::string& text) {
  const std::string log = desk.Text("RTLog");
  const std::size_t at = log.find(text);
  int drawn = 0;
  const bool read =
      at != std::string::npos && std::sscanf(log.c_str() + at + text.size(), "%d", &drawn) == 1;
  Expect(read, "nothing was drawn: " + text);
  return drawn;
}

}  // namespace

void RandomizerNow(Desk& desk) {
  const std::string path = desk.TheRoot().Path(kServerFile);
  PutRanges(desk, Range("base_exp_rate", 100, 300) + Range("job_exp_rate", 77, 77) +
                      Range("nowhere", 1, 2));
  const std::string before =
      ServerFile(desk) + "\r\nquest_base_gain: 1 // umlaut \344\r\nlast line";
  WriteBytes(path, before);
  desk.StartLauncher();
  desk.Click("Command2");
  desk.ExpectLog(seconds(5), "Starting Randomizer - Updating battle_athena.conf");
  desk.ExpectLog(seconds(5), "> job_exp_rate (77~77): 77 - Nothing to calc");
  desk.ExpectLog(seconds(5), "Randomize was succesfull, 3 change(s)");
  const int drawn = DrawnBehind(desk, "> base_exp_rate (100~300): ");
  Expect(drawn >= 100 && drawn <= 300, "drew " + std::to_string(drawn));
  std::string wanted = Replaced(before, "\r\nbase_exp_rate: 100\r\n",
                                "\r\nbase_exp_rate: " + std::to_string(drawn) + "\r\n");
  wanted = Replaced(wanted, "\r\njob_exp_rate: 100\r\n", "\r\njob_exp_rate: 77\r\n");
  ExpectServerFile(desk, wanted, "beside the drawn ones");

  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
  desk.Click("Command2");
  desk.ExpectLog(seconds(5), "conf\\battle_athena.conf file.");
  ExpectServerFile(desk, wanted, "though it is read-only");
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileA(path.c_str());
  desk.Click("Command2");
  desk.ExpectLog(seconds(5), "conf\\battle_athena.conf file can't be loaded");
  Expect(!Exists(path), "the file came back");
  desk.CloseLauncher();
}

namespace {

SYSTEMTIME Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return now;
}

void StartMapAgain(Desk& desk) {
  desk.Click("bStart", 2);
  desk.ExpectLog(seconds(20), "Map Server Stopped!");
  desk.Click("bStart", 2);
  desk.ExpectLogCount(seconds(20), "Map Server Started", 2);
}

}  // namespace

void RandomizerMapStart(Desk& desk) {
  if (Now().wMinute >= 58) throw Skipped("the hour is over in a moment");
  PutRanges(desk, Range("base_exp_rate", 555, 555));
  desk.WriteSettings({{"AutoRandomize", "0"}, {"MaxRndDay", "1"}, {"MaxRndHour", "1"}});
  desk.StartLauncher();
  const std::string before = ServerFile(desk);
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(20), "Login Server Started!");
  desk.ExpectNoLog("Starting Randomizer");
  desk.Click("bStart", 2);
  desk.ExpectLog(seconds(20), "Map Server Started");
  desk.ExpectLogCount(seconds(0), "Randomize was succesfull, 1 change(s)", 1);
  ExpectServerFile(desk,
                   Replaced(before, "\r\nbase_exp_rate: 100\r\n", "\r\nbase_exp_rate: 555\r\n"),
                   "after the first start");
  desk.ExpectSetting("HourRndCnt", "1");
  desk.ExpectSetting("DayRndCnt", "1");
  WriteBytes(desk.TheRoot().Path(kServerFile), before);
  StartMapAgain(desk);
  desk.ExpectLogCount(seconds(0), "Starting Randomizer", 1);
  ExpectServerFile(desk, before, "after the second start");
  // The next launcher remembers.
  desk.Click("bStart", 4);
  desk.CloseLauncher();
  desk.StartLauncher();
  desk.Click("bStart", 2);
  desk.ExpectLog(seconds(20), "Map Server Started");
  desk.ExpectNoLog("Starting Randomizer");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

namespace {

/// The next minute that is far enough off to be put in first, as "Mon 07:05".
struct Due {
  std::string day;
  int hour;
  int minute;

  std::string Clock() const {
    char text[8];
    std::snprintf(text, sizeof text, "%02d:%02d", hour, minute);
    return text;
  }
};

Due NextDue() {
  constexpr ULONGLONG kSecond = 10000000;  // In the hundreds of nanoseconds of a file's time.
  const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  SYSTEMTIME time = Now();
  FILETIME stamp{};
  SystemTimeToFileTime(&time, &stamp);
  ULARGE_INTEGER later{};
  later.LowPart = stamp.dwLowDateTime;
  later.HighPart = stamp.dwHighDateTime;
  later.QuadPart += (time.wSecond < 40 ? 60 : 120) * kSecond;
  stamp = {later.LowPart, later.HighPart};
  FileTimeToSystemTime(&stamp, &time);
  return {days[time.wDayOfWeek], time.wHour, time.wMinute};
}

void PutIntoCalendar(Desk& desk, const Due& due) {
  desk.Choose("lstDay", -1, due.day);
  desk.Scroll("ScrollTime", 0, due.hour);
  desk.Scroll("ScrollTime", 1, due.minute);
  ExpectEqual(desk.Text("txt_Time", 0) + ":" + desk.Text("txt_Time", 1), due.Clock(), "the time");
  desk.Choose("cmbRstrt", -1, "Yes");
  desk.Click("cmdCalendar", 0);
  desk.Click("cmdCalendar", 0);  // A second press adds nothing.
  const std::vector<std::string> entries = desk.Entries("lstDTRands");
  Expect(entries.size() == 1, "there are " + std::to_string(entries.size()) + " entries");
  ExpectEqual(entries.front(), due.day + " " + due.Clock() + " restart=Y", "the entry");
  ExpectEqual(ReadBytes(desk.TheRoot().Path("rndcalendar.xml")),
              Document("Calendar", "\t<" + due.day + "_" + due.Clock() + " Restart=\"Yes\"/>\r\n"),
              "rndcalendar.xml");
}

void ExpectRun(const Desk& desk, const std::string& before, DWORD login, const Due& due) {
  desk.ExpectLog(seconds(150), "Randomize: Restarting Server");
  desk.ExpectLog(seconds(20), "Login Server Stopped!");
  ExpectServerFile(desk,
                   Replaced(before, "\r\nbase_exp_rate: 100\r\n", "\r\nbase_exp_rate: 555\r\n"),
                   "after the calendar's run");
  desk.ExpectCount("login", 1);
  Expect(desk.Process("login") != login, "the login server was not restarted");
  const std::string last = desk.TheRoot().Kept().Read("LastRandProcess").value_or("");
  Expect(last.size() == 19 && last.substr(10, 7) == " " + due.Clock() + ":",
         "LastRandProcess is \"" + last + "\"");
}

}  // namespace

void RandomizerCalendar(Desk& desk) {
  PutRanges(desk, Range("base_exp_rate", 555, 555));
  desk.StartLauncher();
  desk.Click("opt_Rnd", 2);
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(20), "Login Server Started!");
  const DWORD login = desk.Process("login");
  const Due due = NextDue();
  PutIntoCalendar(desk, due);
  const std::string before = ServerFile(desk);
  desk.ExpectNoLog("Starting Randomizer");
  ExpectRun(desk, before, login, due);
  // The minute goes on, with more ticks in it; it is over before it could be due again.
  Await(seconds(70), "the minute does not end", [&] { return Now().wMinute != due.minute; });
  desk.ExpectLogCount(seconds(0), "Starting Randomizer", 1);
  desk.Choose("lstDTRands", -1, "#0");
  desk.Click("cmdCalendar", 1);
  ExpectEqual(ReadBytes(desk.TheRoot().Path("rndcalendar.xml")), "<Calendar/>\r\n",
              "rndcalendar.xml");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
