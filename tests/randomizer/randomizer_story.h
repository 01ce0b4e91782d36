#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "form/bindings.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {

inline constexpr char kServerFile[] = "C:\\srv\\conf\\battle_athena.conf";
inline constexpr char kRangesFile[] = "C:\\srv\\randomize.xml";
inline constexpr char kCalendarFile[] = "C:\\srv\\rndcalendar.xml";

/// The declaration line of every document file.
inline constexpr char kDeclaration[] =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" application=\"Tarvo Launcher\"?>\r\n";

/// One life of the randomizer on a simulated machine, with its page and its timer.
class RandomizerLife {
 public:
  explicit RandomizerLife(SimMachine& machine)
      : timers(machine.clock),
        calendarTimer(timers, "tmr_Calendar", 15000),
        log(machine.clock),
        root(machine.launcherPath, machine.codePage),
        store(machine.registry, root.SettingsKey()),
        randomizer(BindRandomizer(page, calendarTimer), log, events, root,
                   {machine.files, machine.files, machine.eventLog, store, machine.clock,
                    machine.random, machine.boxes}) {
    log.listeners.emplace_back([this](const LogLine& line) {
      lines_ += std::to_string(line.level) + " " + line.pieces[1].text + '\n';
    });
    randomizer.WireControls();
    randomizer.TheCalendar().restartRunning = [this] { ++restarts; };
  }
  RandomizerLife(const RandomizerLife&) = delete;
  RandomizerLife& operator=(const RandomizerLife&) = delete;

  /// The log's lines since the last call, each "level text".
  std::string NewLog() { return std::exchange(lines_, {}); }

  TimerQueue timers;
  RandomizerPage page;
  Timer calendarTimer;
  StatusLog log;
  LauncherEvents events;
  ServerRoot root;
  SettingsStore store;
  Randomizer randomizer;
  int restarts = 0;

 private:
  std::string lines_;
};

/// Sees what a list on the screen does: with how few lines it is shown.
class ListOnScreen final : private ControlMirror {
 public:
  explicit ListOnScreen(ListBox& list) : list_(list) { list.SetMirror(this); }
  ~ListOnScreen() { list_.SetMirror(nullptr); }
  ListOnScreen(const ListOnScreen&) = delete;
  ListOnScreen& operator=(const ListOnScreen&) = delete;

  std::size_t fewest = 1000;

 private:
  void Refresh(const Control&) override { fewest = std::min(fewest, list_.Items().size()); }

  ListBox& list_;
};

/// A test as a story: put files on the machine, load, act, compare files, page and log.
class RandomizerStory : public ::testing::Test {
 protected:
  /// Starts a life and loads the files; what happened before is forgotten by the log.
  void Load() {
    Begin();
    life->randomizer.LoadRandomizerFiles();
  }
  /// Starts a life that has not loaded anything.
  void Begin() {
    life.reset();
    life = std::make_unique<RandomizerLife>(machine);
  }
  RandomizerPage& Page() { return life->page; }
  std::string NewLog() { return life->NewLog(); }

  void PutServerFile(const std::string& text) { machine.files.Put(kServerFile, text); }
  void PutRanges(const std::string& elements) {
    machine.files.Put(kRangesFile, Xml("Randomize", elements));
  }
  void PutCalendar(const std::string& elements) {
    machine.files.Put(kCalendarFile, Xml("Calendar", elements));
  }
  std::string ServerFile() { return machine.files.TextOf(kServerFile); }
  std::string RangesFile() { return machine.files.TextOf(kRangesFile); }
  std::string CalendarFile() { return machine.files.TextOf(kCalendarFile); }

  /// A whole document file with this root around the elements.
  static std::string Xml(const std::string& root, const std::string& elements) {
    return std::string(kDeclaration) + "<" + root + ">\r\n" + elements + "</" + root + ">\r\n";
  }
  static std::string Range(const std::string& name, const std::string& min,
                           const std::string& max) {
    return "\t<" + name + " Min=\"" + min + "\" Max=\"" + max + "\"/>\r\n";
  }
  static std::string Entry(const std::string& name, const std::string& restart) {
    return "\t<" + name + " Restart=\"" + restart + "\"/>\r\n";
  }

  void ChooseSetting(const std::string& name) {
    Page().cmdParam.Choose(Position(Page().cmdParam, name));
  }
  void ChooseRange(const std::string& line) { Page().lstRnd.Choose(Position(Page().lstRnd, line)); }
  static int Position(const ItemList& list, const std::string& item) {
    const auto& items = list.Items();
    const auto found = std::find(items.begin(), items.end(), item);
    EXPECT_NE(found, items.end()) << item;
    return static_cast<int>(found - items.begin());
  }
  void TypeRange(const std::string& min, const std::string& max) {
    Page().rIni.Type(min);
    Page().rEnd.Type(max);
  }
  /// A list's entries, one a line.
  static std::string Lines(const ItemList& list) {
    std::string lines;
    for (const std::string& item : list.Items()) lines += item + '\n';
    return lines;
  }

  /// Sets the wall clock to a moment of the week that begins on Monday, 2026-11-23.
  void SetClock(int weekday, int hour, int minute, int second = 0, int week = 0) {
    using namespace std::chrono;
    machine.clock.SetLocal(local_days(year(2026) / 11 / 23) + days(weekday - 1 + 7 * week) +
                           hours(hour) + minutes(minute) + seconds(second));
  }

  SimMachine machine;
  std::unique_ptr<RandomizerLife> life;
};

}  // namespace tarvo
