#include "support/date_time.h"
#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class CalendarTicks : public RandomizerStory {
 protected:
  void Begin(const std::string& entries) {
    PutRanges(Range("base_exp_rate", "5", "9"));
    PutCalendar(entries);
    Load();
    life->randomizer.TheCalendar().restartRunning = [this] {
      life->log.LogStatus("(restarted)", kExtra);
    };
  }
  void Tick() { life->randomizer.TheCalendar().Tick(); }
  int Runs() {
    const std::string log = NewLog();
    int runs = 0;
    for (std::size_t at = 0; (at = log.find("Starting Randomizer", at)) != std::string::npos;
         ++at) {
      ++runs;
    }
    return runs;
  }
  /// The runs of the four ticks of a minute.
  int RunsIn(int weekday, int hour, int minute, int week = 0) {
    for (int second : {3, 18, 33, 48}) {
      SetClock(weekday, hour, minute, second, week);
      Tick();
    }
    return Runs();
  }
};

TEST_F(CalendarTicks, ADueEntryRandomizesOnceAndRestarts) {
  Begin(Entry("Mon_08:30", "Yes"));
  SetClock(1, 8, 30, 10);
  Tick();
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > base_exp_rate (5~9): 5\n"
            "3 Randomize was succesfull, 1 change(s)\n"
            "3 Randomize: Restarting Server\n"
            "3 (restarted)\n");
  EXPECT_EQ(machine.Setting("LastRandProcess"), "2026-11-23 08:30:10");
  machine.clock.Advance(15000);
  Tick();
  EXPECT_EQ(NewLog(), "");
}

TEST_F(CalendarTicks, AnEntryWithoutRestartOnlyRandomizes) {
  Begin(Entry("Sun_00:00", "No"));
  EXPECT_EQ(RunsIn(7, 0, 0), 1);
  Begin(Entry("Sun_00:00", "yes"));
  SetClock(1, 1, 1);
  SetClock(7, 0, 0, 0, 1);
  machine.SetSetting("LastRandProcess", "2026-01-01 01:01:01");
  Tick();
  const std::string log = NewLog();
  EXPECT_NE(log.find("succesfull"), std::string::npos);
  EXPECT_EQ(log.find("Restarting"), std::string::npos);
}

TEST_F(CalendarTicks, NothingHappensOutsideTheMinute) {
  Begin(Entry("Mon_08:30", "Yes"));
  machine.recorder.Forget();
  for (int weekday = 1; weekday <= 7; ++weekday) {
    for (int hour = 0; hour < 24; ++hour) {
      for (int minute = 0; minute < 60; ++minute) {
        if (weekday == 1 && hour == 8 && minute == 30) continue;
        SetClock(weekday, hour, minute);
        Tick();
      }
    }
  }
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
}

TEST_F(CalendarTicks, EachDayOfTheWeekIsMet) {
  const char* days[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  std::string entries;
  for (const char* day : days) entries += Entry(std::string(day) + "_12:00", "No");
  Begin(entries);
  for (int weekday = 1; weekday <= 7; ++weekday) EXPECT_EQ(RunsIn(weekday, 12, 0), 1) << weekday;
}

TEST_F(CalendarTicks, ASingleEntryRunsOnceAndThenStaysSilent) {
  Begin(Entry("Mon_08:30", "No"));
  EXPECT_EQ(RunsIn(1, 8, 30), 1);
  for (int week = 1; week < 60; ++week) EXPECT_EQ(RunsIn(1, 8, 30, week), 0) << week;
}

TEST_F(CalendarTicks, TwoEntriesRunEveryWeek) {
  Begin(Entry("Mon_08:30", "No") + Entry("Thu_08:30", "No"));
  for (int week = 0; week < 10; ++week) {
    EXPECT_EQ(RunsIn(1, 8, 30, week), 1) << week;
    EXPECT_EQ(RunsIn(4, 8, 30, week), 1) << week;
  }
}

TEST_F(CalendarTicks, TheGuardOutlivesTheLauncher) {
  Begin(Entry("Mon_08:30", "No"));
  EXPECT_EQ(RunsIn(1, 8, 30), 1);
  Begin(Entry("Mon_08:30", "No"));
  SetClock(1, 8, 30, 55);
  Tick();
  EXPECT_EQ(Runs(), 0);
}

TEST_F(CalendarTicks, TheGuardEndsTheWholeTick) {
  Begin(Entry("Mon_08:30", "No") + Entry("Mon_8:30", "Yes"));
  SetClock(1, 8, 30);
  Tick();
  EXPECT_EQ(NewLog().find("Restarting"), std::string::npos);
}

TEST_F(CalendarTicks, AMissingLastRunIsAThousandDaysAgo) {
  Begin(Entry("Mon_08:30", "No"));
  EXPECT_EQ(RunsIn(1, 8, 30), 1);  // 1000 days before a Monday is no Monday.
}

TEST_F(CalendarTicks, AnUnreadableLastRunCountsAsMissing) {
  for (const char* text : {"", "yesterday", "2026-13-45", "08:30:00 on Monday"}) {
    Begin(Entry("Mon_08:30", "No"));
    machine.SetSetting("LastRandProcess", text);
    EXPECT_EQ(RunsIn(1, 8, 30), 1) << text;
  }
  Begin(Entry("Mon_08:30", "No"));
  machine.registry.Put(Hive::LocalMachine, machine.SettingsKey(), "LastRandProcess",
                       {4, "2026-11-23 08:30:00"});
  EXPECT_EQ(RunsIn(1, 8, 30), 1);
}

TEST_F(CalendarTicks, TheGuardComparesWeekdayHourAndMinuteOnly) {
  Begin(Entry("Mon_08:30", "No"));
  machine.SetSetting("LastRandProcess", "2001-01-01 08:30:59");  // A Monday of long ago.
  EXPECT_EQ(RunsIn(1, 8, 30), 0);
  machine.SetSetting("LastRandProcess", "2001-01-01 08:31:00");
  EXPECT_EQ(RunsIn(1, 8, 30), 1);
  machine.SetSetting("LastRandProcess", "2001-01-02 08:30:00");
  EXPECT_EQ(RunsIn(1, 8, 30), 1);
}

TEST_F(CalendarTicks, WithoutRangesBothLogsSaySo) {
  Begin(Entry("Mon_08:30", "Yes"));
  machine.files.Remove(kRangesFile);
  Load();
  SetClock(1, 8, 30);
  Tick();
  EXPECT_EQ(NewLog(),
            "3 Randomize: Nothing to do!\n"
            "3 Randomizer Information: Nothing to do!\n"
            "3 Randomize: Restarting Server\n");
  EXPECT_EQ(life->restarts, 1);
  EXPECT_EQ(machine.Setting("LastRandProcess"), "2026-11-23 08:30:00");
}

TEST_F(CalendarTicks, AFailedRunRestartsAndCountsAllTheSame) {
  Begin(Entry("Mon_08:30", "Yes"));
  machine.files.Remove(kServerFile);
  SetClock(1, 8, 30);
  Tick();
  EXPECT_EQ(NewLog(),
            "2 Randomizer Error: C:\\srv\\conf\\battle_athena.conf file can't be loaded\n"
            "3 Randomize: Restarting Server\n"
            "3 (restarted)\n");
  EXPECT_EQ(machine.Setting("LastRandProcess"), "2026-11-23 08:30:00");
}

TEST_F(CalendarTicks, LinesOfAnyOtherFormAreSkipped) {
  Begin("\t<x/>\r\n\t<Mon/>\r\n\t<Mon_0830 Restart=\"Yes\"/>\r\n\t<_ Restart=\"Yes\"/>\r\n" +
        Entry("Mon_08:30_more", "Yes") + Entry("Mon__08:30", "Yes") + Entry("mon_08:30", "Yes") +
        Entry("Mon_aa:bb", "Yes") + Entry("Mon_08:30", "No"));
  EXPECT_EQ(Page().lstDTRands.Items().size(), 9u);
  SetClock(1, 8, 30);
  Tick();
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > base_exp_rate (5~9): 5\n"
            "3 Randomize was succesfull, 1 change(s)\n");
}

TEST_F(CalendarTicks, MissedMinutesAreNotCaughtUp) {
  Begin(Entry("Mon_08:30", "No"));
  SetClock(1, 8, 29, 59);
  Tick();
  SetClock(1, 8, 31, 0);
  Tick();
  EXPECT_EQ(Runs(), 0);
}

TEST_F(CalendarTicks, TheTimerTicksEveryFifteenSecondsInProgramMode) {
  Begin(Entry("Mon_08:30", "No"));
  SetClock(1, 8, 29, 50);
  Page().opt_Rnd[2].Click();
  for (int second = 0; second < 120; ++second) {
    machine.clock.Advance(1000);
    life->timers.RunNext([](const std::function<void()>& tick) { tick(); });
  }
  EXPECT_EQ(Runs(), 1);
  EXPECT_EQ(machine.Setting("LastRandProcess"), "2026-11-23 08:30:05");
}

TEST_F(CalendarTicks, TheClockSetBackAnHourRunsAPassedEntryAgainIfAnotherRanSince) {
  Begin(Entry("Sun_02:10", "No") + Entry("Sun_02:40", "No"));
  EXPECT_EQ(RunsIn(7, 2, 10), 1);
  EXPECT_EQ(RunsIn(7, 2, 40), 1);
  EXPECT_EQ(RunsIn(7, 2, 10), 1);  // The hour comes twice when summer time ends.
  EXPECT_EQ(RunsIn(7, 2, 40), 1);
}

TEST_F(CalendarTicks, TheClockSetBackAnHourDoesNotRepeatTheLastEntry) {
  Begin(Entry("Sun_02:10", "No"));
  EXPECT_EQ(RunsIn(7, 2, 10), 1);
  EXPECT_EQ(RunsIn(7, 2, 10), 0);
}

TEST_F(CalendarTicks, AnHourThatSummerTimeLeavesOutDoesNotRun) {
  Begin(Entry("Sun_02:10", "No") + Entry("Sun_03:10", "No"));
  SetClock(7, 1, 59, 50);
  Tick();
  SetClock(7, 3, 0, 5);
  Tick();
  EXPECT_EQ(Runs(), 0);
  EXPECT_EQ(RunsIn(7, 3, 10), 1);
}

TEST_F(CalendarTicks, TheLastRunIsTheMomentAfterTheRestart) {
  Begin(Entry("Mon_08:30", "Yes"));
  life->randomizer.TheCalendar().restartRunning = [this] { machine.clock.Advance(70000); };
  SetClock(1, 8, 30, 10);
  Tick();
  EXPECT_EQ(machine.Setting("LastRandProcess"), "2026-11-23 08:31:20");
}

TEST_F(CalendarTicks, TheGuardComparesWithTheMinuteInWhichTheTickBegan) {
  Begin(Entry("Mon_08:30", "Yes") + Entry("Mon_8:30", "No"));
  life->randomizer.TheCalendar().restartRunning = [this] { machine.clock.Advance(70000); };
  SetClock(1, 8, 30, 10);
  Tick();
  EXPECT_EQ(Runs(), 2);
}

TEST_F(CalendarTicks, TheLinesOfTheListCountNotTheDocument) {
  Begin(Entry("Mon_08:30", "No"));
  Fields& entries = life->randomizer.RandomizerDocument().Childs().Child("Calendar")->Fields();
  entries.AddField("Mon_09:30");
  EXPECT_EQ(RunsIn(1, 9, 30), 0);
  Page().lstDTRands.AddItem("Mon 10:30 restart=N");
  EXPECT_EQ(RunsIn(1, 10, 30), 1);
  entries.RemoveField(0);
  EXPECT_EQ(RunsIn(1, 8, 30), 1);
}

TEST(LastCalendarRun, WhenMissingIsExactlyAThousandDaysAgo) {
  const LocalTime now = ParseDateTime("2026-11-23 08:30:10");
  EXPECT_EQ(GeneralDate(LastRunWhenMissing(now)), "2024-02-27 08:30:10");
  EXPECT_EQ(now - LastRunWhenMissing(now), 24000h);
}

}  // namespace
}  // namespace tarvo
