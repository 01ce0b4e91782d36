// The randomizer's figures, one a line: name, value, unit, limit, held or short. The exit code is 1
// when a limit was missed. A word (run, growth, load, year) asks for one of them alone.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "benches/figures.h"
#include "benches/randomizer/bench_ports.h"
#include "benches/randomizer/calendar_year.h"
#include "platform/mersenne_random.h"

namespace tarvo {
namespace {

using Clock = std::chrono::steady_clock;

constexpr char kServerFile[] = "C:\\srv\\conf\\battle_athena.conf";
constexpr char kRanges[] = "C:\\srv\\randomize.xml";
constexpr char kCalendar[] = "C:\\srv\\rndcalendar.xml";

Figures figures;

double Milliseconds(const std::function<void()>& work) {
  const auto begin = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// One life of the randomizer.
struct Life {
  explicit Life(BenchPorts& ports)
      : timers(ports),
        calendarTimer(timers, "tmr_Calendar", 15000),
        log(ports),
        store(ports, "Settings"),
        randomizer(BindRandomizer(page, calendarTimer), log, events,
                   ServerRoot("C:\\srv\\tarvo-launcher.exe", ports),
                   {ports, ports, ports, store, ports, random, ports}) {
    randomizer.WireControls();
  }

  MersenneRandom random;
  TimerQueue timers;
  RandomizerPage page;
  Timer calendarTimer;
  StatusLog log;
  LauncherEvents events;
  SettingsStore store;
  Randomizer randomizer;
};

/// A server file of so many lines, of which the first `settings` of every kind are numbers:
/// comments, numbers and words take turns.
std::string ServerText(int lines, int settings) {
  std::string text;
  int numbers = 0;
  for (int i = 0; i < lines; ++i) {
    const bool number = numbers < settings && i % (lines / settings) == 0;
    if (number) {
      text += "setting_number_" + std::to_string(numbers++) + ": 100\r\n";
    } else if (i % 2 == 0) {
      text += "// What the setting below is good for, and what happens without.\r\n";
    } else {
      text += "another_setting_" + std::to_string(i) + ": yes\r\n";
    }
  }
  return text;
}

std::string RangesText(int count) {
  std::string text = "<Randomize>\r\n";
  for (int i = 0; i < count; ++i) {
    text += "\t<setting_number_" + std::to_string(i) + " Min=\"50\" Max=\"500\"/>\r\n";
  }
  return text + "</Randomize>\r\n";
}

/// The quickest of several tries of each, taken in turns so that both meet the same machine.
void RunBesideCopy(BenchPorts& ports) {
  ports.ReplaceText(kServerFile, ServerText(50000, 1000));
  ports.ReplaceText(kRanges, RangesText(1000));
  Life life(ports);
  life.randomizer.LoadRandomizerFiles();
  double run = 1e9;
  double copy = 1e9;
  for (int i = 0; i < 15; ++i) {
    run = std::min(run, Milliseconds([&] { life.randomizer.RunRandomizer(); }));
    copy = std::min(copy, Milliseconds([&] {
                      std::string text;
                      ports.ReadText(kServerFile, text);
                      ports.ReplaceText(kServerFile, text);
                    }));
  }
  std::printf("  a run %.2f ms, reading and writing the file %.2f ms\n", run, copy);
  figures.AtMost("50,000 lines, 1,000 parameters: run to copy", run / copy, "ratio", 2);
}

double RunTime(BenchPorts& ports, int lines, int parameters) {
  ports.ReplaceText(kServerFile, ServerText(lines, parameters));
  ports.ReplaceText(kRanges, RangesText(parameters));
  Life life(ports);
  life.randomizer.LoadRandomizerFiles();
  double best = 1e9;
  for (int i = 0; i < 7; ++i) {
    best = std::min(best, Milliseconds([&] { life.randomizer.RunRandomizer(); }));
  }
  return best;
}

/// Ten times the settings with ten times the lines: the cost grows with their sum.
void Growth(BenchPorts& ports) {
  const double small = RunTime(ports, 50000, 1000);
  const double large = RunTime(ports, 500000, 10000);
  figures.AtMost("ten times lines and parameters to one", large / small, "ratio", 20);
}

void LoadTime(BenchPorts& ports) {
  ports.ReplaceText(kServerFile, ServerText(1500, 350));
  ports.ReplaceText(kRanges, RangesText(50));
  double best = 1e9;
  for (int i = 0; i < 20; ++i) {
    const auto life = std::make_unique<Life>(ports);
    best = std::min(best, Milliseconds([&] { life->randomizer.LoadRandomizerFiles(); }));
    if (life->page.cmdParam.Items().size() != 350) std::abort();
  }
  figures.AtMost("load 1,500 lines, 350 settings", best, "ms", 5);
}

std::vector<YearEntry> FiftyEntries() {
  std::vector<YearEntry> entries;
  for (int i = 0; i < 50; ++i) entries.push_back({i % 7 + 1, i * 5 % 24, i * 7 % 60});
  return entries;
}

std::string CalendarText(const std::vector<YearEntry>& entries) {
  constexpr const char* kDays[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  std::string text = "<Calendar>\r\n";
  for (const YearEntry& entry : entries) {
    char name[32];
    std::snprintf(name, sizeof name, "%s_%02d:%02d", kDays[entry.weekday - 1], entry.hour,
                  entry.minute);
    text += "\t<" + std::string(name) + " Restart=\"Yes\"/>\r\n";
  }
  return text + "</Calendar>\r\n";
}

/// A year of ticks and of a map start each hour; false when any run differs from the tables'.
bool PlayYear(BenchPorts& ports, LocalTime begin, LocalTime end) {
  const auto entries = FiftyEntries();
  ports.ReplaceText(kServerFile, "setting_number_0: 1\r\n");
  ports.ReplaceText(kRanges, RangesText(1));
  ports.ReplaceText(kCalendar, CalendarText(entries));
  Life life(ports);
  life.randomizer.LoadRandomizerFiles();
  if (life.page.lstDTRands.Items().size() != entries.size()) return false;
  std::vector<LocalTime> calendarRuns;
  std::vector<LocalTime> mapRuns;
  life.randomizer.TheCalendar().restartRunning = [&] {
    calendarRuns.push_back(std::chrono::floor<std::chrono::minutes>(ports.now));
  };
  MapStartGate& gate = life.randomizer.TheGate();
  gate.SetCounters({begin, 0, 0});
  life.page.opt_Rnd[0].Select();
  life.page.txtMxD[0].SetText("1");
  life.page.txtMxD[1].SetText("3");
  for (ports.now = begin; ports.now < end; ports.now += std::chrono::seconds(15)) {
    life.randomizer.TheCalendar().Tick();
    if (ports.now.time_since_epoch().count() % 3600 != 0) continue;
    const std::int32_t before = gate.Counters().DayRndCnt;
    gate.RandomizeOnMapStart();
    const bool ran = gate.Counters().LastRandomize == ports.now &&
                     (gate.Counters().DayRndCnt == before + 1 || gate.Counters().DayRndCnt == 1);
    if (ran) mapRuns.push_back(ports.now);
  }
  std::printf("  %zu calendar runs and %zu map start runs in the year\n", calendarRuns.size(),
              mapRuns.size());
  return calendarRuns == CalendarRuns(entries, begin, end) &&
         mapRuns == MapStartRuns(1, 3, begin, end);
}

void YearTime(BenchPorts& ports) {
  const LocalTime begin = std::chrono::local_days(std::chrono::year(2027) / 1 / 1);
  const LocalTime end = begin + std::chrono::days(365);
  bool agrees = false;
  const double time = Milliseconds([&] { agrees = PlayYear(ports, begin, end); });
  figures.AtMost("a year of calendar and map starts", time / 1000, "s", 10);
  figures.AtMost("years that disagree with the table", agrees ? 0 : 1, "years", 0);
}

}  // namespace
}  // namespace tarvo

int main(int count, char** words) {
  std::string folder = std::filesystem::temp_directory_path() / "randomizer_bench_XXXXXX";
  if (!mkdtemp(folder.data())) return 2;
  tarvo::BenchPorts ports(folder);
  const std::string only = count > 1 ? words[1] : "";
  const auto wanted = [&](const char* part) { return only.empty() || only == part; };
  if (wanted("run")) tarvo::RunBesideCopy(ports);
  if (wanted("growth")) tarvo::Growth(ports);
  if (wanted("load")) tarvo::LoadTime(ports);
  if (wanted("year")) tarvo::YearTime(ports);
  for (const char* path : {tarvo::kServerFile, tarvo::kRanges, tarvo::kCalendar}) {
    std::remove(ports.PathOf(path).c_str());
  }
  rmdir(folder.c_str());
  return tarvo::figures.ExitCode();
}
