#include "support/date_time.h"
#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

/// Starts of the map server, as the launcher asks the randomizer before each of them.
class MapStarts : public RandomizerStory {
 protected:
  void Begin(const std::string& perHour, const std::string& perDay, std::size_t mode = 0) {
    PutRanges(Range("base_exp_rate", "5", "9"));
    Load();
    Page().opt_Rnd[mode].Click();
    Page().txtMxD[0].Type(perHour);
    Page().txtMxD[1].Type(perDay);
    Gate().SetCounters({machine.clock.Now(), 0, 0});
  }
  MapStartGate& Gate() { return life->randomizer.TheGate(); }
  /// True when the start ran the engine.
  bool StartMap() {
    NewLog();
    Gate().RandomizeOnMapStart();
    return NewLog().find("Starting Randomizer") != std::string::npos;
  }
  int RunsOf(int starts) {
    int runs = 0;
    for (int i = 0; i < starts; ++i) runs += StartMap() ? 1 : 0;
    return runs;
  }
};

TEST_F(MapStarts, HaveNeverRandomizedUnlessTheSettingsSaySo) {
  Load();
  EXPECT_EQ(Gate().Counters().HourRndCnt, 0);
  EXPECT_EQ(Gate().Counters().DayRndCnt, 0);
  EXPECT_EQ(Gate().Counters().LastRandomize, ZeroDateTime());
}

TEST_F(MapStarts, RunInTheModeMapStartOnly) {
  Begin("9", "9", 1);
  EXPECT_FALSE(StartMap());
  Page().opt_Rnd[2].Click();
  EXPECT_FALSE(StartMap());
  EXPECT_EQ(machine.Setting("LastRandomize"), "(none)");
  Page().opt_Rnd[0].Click();
  EXPECT_TRUE(StartMap());
}

TEST_F(MapStarts, TheLastRunIsTheMomentBehindTheEngine) {
  Begin("9", "9");
  machine.recorder.beforeEach = [&] {
    if (machine.recorder.Calls().back().starts_with("files.swap(")) {
      machine.clock.Advance(90 * 1000);
    }
  };
  const auto before = machine.clock.Now();
  EXPECT_TRUE(StartMap());
  EXPECT_EQ(machine.Setting("LastRandomize"), GeneralDate(before + 90s));
}

TEST_F(MapStarts, WithBothLimitsOneTheSecondStartOfAnHourIsStopped) {
  Begin("1", "1");
  SetClock(1, 10, 15);
  Gate().SetCounters({machine.clock.Now(), 0, 0});
  EXPECT_TRUE(StartMap());
  SetClock(1, 10, 59);
  EXPECT_FALSE(StartMap());
  SetClock(2, 10, 40);
  EXPECT_FALSE(StartMap());  // The same hour of the day, on another day.
  SetClock(1, 11, 0);
  EXPECT_FALSE(StartMap());  // The day's limit; the hour's count begins anew.
  SetClock(2, 10, 50);
  EXPECT_TRUE(StartMap());
}

TEST_F(MapStarts, TheHourIsComparedWithoutTheDate) {
  Begin("2", "99");
  SetClock(1, 10, 15);
  Gate().SetCounters({machine.clock.Now(), 0, 0});
  EXPECT_TRUE(StartMap());
  SetClock(2, 10, 40);
  EXPECT_TRUE(StartMap());
  EXPECT_FALSE(StartMap());
  SetClock(3, 10, 0);
  EXPECT_FALSE(StartMap());
  SetClock(3, 11, 0);
  EXPECT_EQ(RunsOf(5), 2);
}

TEST_F(MapStarts, TheWeekdayIsComparedWithoutTheDate) {
  Begin("99", "2");
  SetClock(1, 10, 15);
  Gate().SetCounters({machine.clock.Now(), 0, 0});
  EXPECT_EQ(RunsOf(5), 2);
  SetClock(1, 12, 0, 0, 1);  // A week later.
  EXPECT_EQ(RunsOf(5), 0);
  SetClock(2, 12, 0, 0, 1);
  EXPECT_EQ(RunsOf(5), 2);
}

TEST_F(MapStarts, LimitsAreTheNumbersThatTheirBoxesStartWith) {
  const struct {
    const char* limit;
    int runs;
  } cases[] = {{"0", 0},   {"", 0},       {"many", 0}, {"-1", 0},   {"1", 1},          {"3", 3},
               {"2.5", 3}, {"2 runs", 2}, {" 2", 2},   {"1e1", 10}, {"9999999999", 12}};
  for (const auto& c : cases) {
    Begin(c.limit, "99");
    EXPECT_EQ(RunsOf(12), c.runs) << '"' << c.limit << "\" an hour";
    Begin("99", c.limit);
    EXPECT_EQ(RunsOf(12), c.runs) << '"' << c.limit << "\" a day";
  }
}

TEST_F(MapStarts, ALimitOfNothingStopsOnlyWhereTheTestIsMade) {
  Begin("0", "99");
  EXPECT_FALSE(StartMap());
  machine.clock.Advance(3600000);
  EXPECT_TRUE(StartMap());  // Another hour: the count is set back, and no limit is asked.
  EXPECT_FALSE(StartMap());
}

TEST_F(MapStarts, ARunCountsWhateverComesOfIt) {
  Begin("2", "99");
  machine.files.Remove(kServerFile);
  Gate().RandomizeOnMapStart();
  EXPECT_EQ(Gate().Counters().HourRndCnt, 1);
  EXPECT_EQ(Gate().Counters().DayRndCnt, 1);
  Gate().RandomizeOnMapStart();
  EXPECT_EQ(NewLog(),
            "2 Randomizer Error: C:\\srv\\conf\\battle_athena.conf file can't be loaded\n"
            "2 Randomizer Error: C:\\srv\\conf\\battle_athena.conf file can't be loaded\n");
  Gate().RandomizeOnMapStart();
  EXPECT_EQ(NewLog(), "");
}

TEST_F(MapStarts, BeforeTheFilesAreLoadedARunHasNothingToDoAndCounts) {
  RandomizerStory::Begin();
  Page().opt_Rnd[0].Click();
  Gate().SetCounters({machine.clock.Now(), 0, 0});
  Gate().RandomizeOnMapStart();
  EXPECT_EQ(NewLog(), "3 Randomizer Information: Nothing to do!\n");
  EXPECT_EQ(machine.Setting("HourRndCnt"), "1");
  life->randomizer.LoadRandomizerFiles();
  Gate().RandomizeOnMapStart();
  EXPECT_EQ(NewLog(), "");
}

TEST_F(MapStarts, CountersAreSavedInOrderAfterTheRun) {
  Begin("9", "9");
  SetClock(3, 17, 4, 9);
  Gate().SetCounters({machine.clock.Now(), 4, 2});
  machine.recorder.Forget();
  Gate().RandomizeOnMapStart();
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{
                "files.read(C:\\srv\\conf\\battle_athena.conf)", "random.reseed()",
                "random.fraction()", "files.replace(C:\\srv\\conf\\battle_athena.conf)",
                "files.swap(C:\\srv\\conf\\battle_athena.conf)", "registry.write(LastRandomize)",
                "registry.write(DayRndCnt)", "registry.write(HourRndCnt)"}));
  EXPECT_EQ(machine.Setting("LastRandomize"), "2026-11-25 17:04:09");
  EXPECT_EQ(machine.Setting("DayRndCnt"), "5");
  EXPECT_EQ(machine.Setting("HourRndCnt"), "3");
  EXPECT_EQ(ParseDateTime(machine.Setting("LastRandomize")), machine.clock.Now());
}

TEST_F(MapStarts, AStoppedStartKeepsItsResetInMemoryOnly) {
  Begin("9", "1");
  SetClock(1, 10, 0);
  Gate().SetCounters({machine.clock.Now(), 0, 5});
  EXPECT_TRUE(StartMap());
  machine.recorder.Forget();
  SetClock(1, 11, 0);
  EXPECT_FALSE(StartMap());
  EXPECT_EQ(Gate().Counters().HourRndCnt, 0);
  EXPECT_EQ(machine.Setting("HourRndCnt"), "6");
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
}

TEST_F(MapStarts, TheZeroDateTimeBecomesNowInMemory) {
  Begin("2", "9");
  Gate().SetCounters({ZeroDateTime(), 0, 2});
  EXPECT_FALSE(StartMap());
  EXPECT_EQ(Gate().Counters().LastRandomize, machine.clock.Now());
  EXPECT_EQ(machine.Setting("LastRandomize"), "(none)");
  EXPECT_EQ(ZeroDateTime(), ParseDateTime("1899-12-30 00:00:00"));
}

TEST_F(MapStarts, BeforeAnyRunTheLastOneIsTheZeroDateTime) {
  RandomizerStory::Begin();
  EXPECT_EQ(Gate().Counters().LastRandomize, ZeroDateTime());
  SetClock(4, 10, 0);  // Unlike the hour and the weekday of the zero date-time.
  Page().opt_Rnd[0].Click();
  Page().txtMxD[0].Type("0");
  EXPECT_FALSE(StartMap());
  EXPECT_EQ(Gate().Counters().LastRandomize, machine.clock.Now());
}

TEST_F(MapStarts, CountersAtTheirEndsStayThere) {
  Begin("99999999999", "99999999999");
  Gate().SetCounters({machine.clock.Now(), 2147483647, 2147483647});
  EXPECT_TRUE(StartMap());
  EXPECT_EQ(machine.Setting("HourRndCnt"), "2147483647");
  Gate().SetCounters({machine.clock.Now(), -2147483647 - 1, -1});
  EXPECT_TRUE(StartMap());
  EXPECT_EQ(machine.Setting("DayRndCnt"), "-2147483647");
  EXPECT_EQ(machine.Setting("HourRndCnt"), "0");
}

TEST_F(MapStarts, TheClockSetBackAnHourBeginsAnHourOfItsOwn) {
  Begin("1", "99");
  SetClock(7, 3, 10);
  Gate().SetCounters({machine.clock.Now() - 2h, 0, 0});
  EXPECT_TRUE(StartMap());
  SetClock(7, 2, 10);
  EXPECT_TRUE(StartMap());
  SetClock(7, 2, 59);
  EXPECT_FALSE(StartMap());
  SetClock(7, 3, 0);
  EXPECT_TRUE(StartMap());
}

TEST_F(MapStarts, WithoutTheRightToWriteTheCountersStillHold) {
  Begin("1", "1");
  machine.registry.Deny(Hive::LocalMachine);
  EXPECT_TRUE(StartMap());
  EXPECT_FALSE(StartMap());
}

}  // namespace
}  // namespace tarvo
