// The randomizer within the whole launcher: start-up, map starts, calendar.

#include <algorithm>

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr char kServerFile[] = "C:\\srv\\conf\\battle_athena.conf";
constexpr char kHead[] = "<?xml version=\"1.0\"?>\r\n";

class WholeRandomizer : public LauncherStory {
 protected:
  void PutRange() {
    machine.files.Put("C:\\srv\\randomize.xml",
                      std::string(kHead) +
                          "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n"
                          "</Randomize>\r\n");
  }
  void PutEntry(const std::string& name, const std::string& restart) {
    machine.files.Put("C:\\srv\\rndcalendar.xml", std::string(kHead) + "<Calendar>\r\n\t<" + name +
                                                      " Restart=\"" + restart +
                                                      "\"/>\r\n</Calendar>\r\n");
  }
  RandomizerPage& Page() { return launcher->TheForm().randomizer; }
  std::string BaseRate() {
    const std::string text = machine.files.TextOf(kServerFile);
    const std::size_t at = text.find("base_exp_rate: ") + 15;
    return text.substr(at, text.find("\r\n", at) - at);
  }
};

TEST_F(WholeRandomizer, StartUpLoadsTheFilesAndSelectsTheListsFirstEntries) {
  PutRange();
  PutEntry("Mon_08:30", "Yes");
  StartLauncher();
  EXPECT_EQ(Page().cmdParam.Items().size(), 3u);
  EXPECT_EQ(Page().rEnd.Text(), "9");
  EXPECT_EQ(Page().lstRnd.Items(), std::vector<std::string>{"base_exp_rate:5 to 9"});
  EXPECT_EQ(Page().lstDTRands.Items(), std::vector<std::string>{"Mon 08:30 restart=Y"});
  EXPECT_EQ(Page().lstDay.ListIndex(), 0);
  EXPECT_EQ(Page().cmbRstrt.ListIndex(), 0);
}

TEST_F(WholeRandomizer, AMissingServerFileIsToldAfterTheLauncherIsReady) {
  machine.files.Remove(kServerFile);
  StartLauncher();
  EXPECT_TRUE(launcher->Log().ends_with(
      "10:00:00 0 Launcher Ready!\n"
      "10:00:00 2 C:\\srv\\conf\\battle_athena.conf file can't be loaded\n"));
  EXPECT_EQ(Page().lstDay.ListIndex(), 0);
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(WholeRandomizer, AMapStartRandomizesBeforeTheServerIsLaunched) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  StartLauncher();
  launcher->ForgetLog();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 3 Starting Randomizer - Updating battle_athena.conf\n"
            "10:00:00 3 > base_exp_rate (5~9): 5\n"
            "10:00:00 3 Randomize was succesfull, 1 change(s)\n"
            "10:00:00 0 Map Server Started [High Priority]\n");
  EXPECT_EQ(BaseRate(), "5");
  launcher->Click("bStart", 2);
  launcher->ForgetLog();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(), "10:00:00 0 Map Server Started [High Priority]\n");
}

TEST_F(WholeRandomizer, AMapStartIsSeenOnItsButtonWhileItRandomizes) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  StartLauncher();
  int writes = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("files.swap(")) return;
    ++writes;
    EXPECT_EQ(launcher->TheForm().status.bStart[2].Caption(), "Stop");
    EXPECT_FALSE(launcher->TheForm().servers.Exes[ComponentKind::Map].Enabled());
  };
  launcher->Click("bStart", 2);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(writes, 1);
}

TEST_F(WholeRandomizer, LoginAndCharStartsDoNotRandomize) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  StartLauncher();
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 1);
  EXPECT_EQ(BaseRate(), "100");
}

TEST_F(WholeRandomizer, ARestartAfterACrashIsAMapStartToo) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  machine.SetSetting("MaxRndDay", "2");
  machine.SetSetting("MaxRndHour", "2");
  StartWithAllServers();
  machine.random.Script({0.9});
  Crash(kMap);
  launcher->Pass(10s);
  EXPECT_EQ(BaseRate(), "9");
  EXPECT_EQ(machine.Setting("HourRndCnt"), "2");
}

TEST_F(WholeRandomizer, AnAutoStartComesBeforeTheFilesAndItsRunCounts) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  machine.SetSetting("MapAutoStart", "1");
  StartLauncher();
  EXPECT_EQ(launcher->CountInLog("Randomizer Information: Nothing to do!"), 1u);
  EXPECT_EQ(machine.Setting("HourRndCnt"), "1");
  EXPECT_EQ(BaseRate(), "100");
  EXPECT_EQ(Page().lstRnd.Items().size(), 1u);
}

TEST_F(WholeRandomizer, CountersAreCarriedFromOneLifeToTheNext) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  StartLauncher();
  launcher->Click("bStart", 2);
  launcher->Click("bStart", 2);
  StartLauncher();
  launcher->ForgetLog();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->CountInLog("Randomize was succesfull, 1 change(s)"), 0u);
  EXPECT_EQ(machine.Setting("LastRandomize"), "2026-11-21 10:00:00");
}

TEST_F(WholeRandomizer, EachCounterIsLoadedFromAndSavedToItsOwnPlace) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  machine.SetSetting("LastRandomize", "2026-11-21 10:00:00");
  machine.SetSetting("DayRndCnt", "40");
  machine.SetSetting("HourRndCnt", "7");
  machine.SetSetting("MaxRndHour", "100");  // The day's limit.
  machine.SetSetting("MaxRndDay", "10");    // The hour's.
  StartLauncher();
  launcher->Pass(5s);
  launcher->Click("bStart", 2);
  EXPECT_EQ(machine.Setting("LastRandomize"), "2026-11-21 10:00:05");
  EXPECT_EQ(machine.Setting("DayRndCnt"), "41");
  EXPECT_EQ(machine.Setting("HourRndCnt"), "8");
}

TEST_F(WholeRandomizer, TheCrossedLimitsAreReadFromTheValuesOfTheOtherName) {
  PutRange();
  machine.SetSetting("MaxRndDay", "3");
  machine.SetSetting("MaxRndHour", "7");
  StartLauncher();
  EXPECT_EQ(Page().txtMxD[0].Text(), "3");
  EXPECT_EQ(Page().txtMxD[1].Text(), "7");
}

TEST_F(WholeRandomizer, TheCalendarRandomizesAndRestartsWhatRuns) {
  PutRange();
  PutEntry("Sat_10:01", "Yes");
  machine.SetSetting("AutoRandomize", "2");
  StartLauncher();
  launcher->Click("bStart", 0);
  launcher->Pass(20s);
  launcher->ForgetLog();
  launcher->Pass(45s);
  EXPECT_EQ(launcher->Log(),
            "10:01:00 3 Starting Randomizer - Updating battle_athena.conf\n"
            "10:01:00 3 > base_exp_rate (5~9): 5\n"
            "10:01:00 3 Randomize was succesfull, 1 change(s)\n"
            "10:01:00 3 Randomize: Restarting Server\n"
            "10:01:00 1 Restarting Server\n"
            "10:01:00 1 Login Server Stopped!\n"
            "10:01:00 0 Login Server Started! [Low Priority]\n"
            "10:01:03 0 Listening Login Server\n");
}

TEST_F(WholeRandomizer, TheCalendarIsStillInTheOtherModes) {
  PutRange();
  PutEntry("Sat_10:01", "Yes");
  StartLauncher();
  launcher->Pass(5min);
  EXPECT_EQ(BaseRate(), "100");
  launcher->Click("opt_Rnd", 2);
  EXPECT_TRUE(launcher->TheForm().timers.tmr_Calendar.Enabled());
}

TEST_F(WholeRandomizer, ACalendarRestartOfTheMapServerIsNoMapStartInProgramMode) {
  PutRange();
  PutEntry("Sat_10:01", "Yes");
  machine.SetSetting("AutoRandomize", "2");
  StartLauncher();
  launcher->Click("bStart", 2);
  launcher->Pass(65s);
  EXPECT_EQ(launcher->CountInLog("Randomize was succesfull, 1 change(s)"), 1u);
  EXPECT_EQ(machine.Setting("HourRndCnt"), "(none)");
}

TEST_F(WholeRandomizer, TheCalendarLooksEveryFifteenSeconds) {
  PutRange();
  PutEntry("Sat_10:00", "No");
  StartLauncher();
  launcher->Pass(7s);
  launcher->ForgetLog();
  launcher->Click("opt_Rnd", 2);
  launcher->Pass(40s);
  EXPECT_EQ(launcher->Log(),
            "10:00:22 3 Starting Randomizer - Updating battle_athena.conf\n"
            "10:00:22 3 > base_exp_rate (5~9): 5\n"
            "10:00:22 3 Randomize was succesfull, 1 change(s)\n");
}

TEST_F(WholeRandomizer, AMapServerFoundInMemoryIsAMapStartTooAndIsLookedForAfterTheRun) {
  PutRange();
  machine.SetSetting("AutoRandomize", "0");
  StartLauncher();
  machine.processes.StartForeign(kMap);
  launcher->ForgetLog();
  machine.recorder.Forget();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 3 Starting Randomizer - Updating battle_athena.conf\n"
            "10:00:00 3 > base_exp_rate (5~9): 5\n"
            "10:00:00 3 Randomize was succesfull, 1 change(s)\n"
            "10:00:00 0 [map-server.exe] was found in memory!\n"
            "10:00:00 0 Map Server under control [High Priority]\n"
            "10:00:00 0 Listening Map Server\n");
  const auto& calls = machine.recorder.Calls();
  const auto lookUp = std::find(calls.begin(), calls.end(), "processes.snapshot()");
  const auto saved = std::find(calls.begin(), calls.end(), "registry.write(HourRndCnt)");
  ASSERT_NE(lookUp, calls.end());
  EXPECT_LT(saved, lookUp);
}

}  // namespace
}  // namespace tarvo
