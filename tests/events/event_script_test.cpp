#include "events/event_script.h"

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr char kScript[] = "C:\\srv\\on-event.cmd";

/// The script is there and switched on. The map server starts and stops at the operator's word.
class EventScripts : public LauncherStory {
 protected:
  EventScripts() {
    machine.files.Put(kScript, "@echo off\r\n");
    machine.SetSetting("RunOnEvent", "1");
    StartLauncher();
  }

  /// Presses the button of the map server, which starts it or stops it.
  void Toggle() { launcher->Click("bStart", 2); }
  /// Six events at one moment, of different components.
  void StartAndStopAll() {
    launcher->Click("bStart", 3);
    launcher->Click("bStart", 4);
  }
  std::string NewStarts() { return machine.scripts.NewStarts(); }
  std::size_t Attempts() const { return machine.recorder.CountOf("scripts.start"); }
  bool TimerRuns() { return launcher->TheForm().timers.tmrEvents.Enabled(); }
};

TEST_F(EventScripts, GetTheEventTheComponentTheTextTheTimeTheCountAndTheServersName) {
  Toggle();
  EXPECT_EQ(NewStarts(), "");
  launcher->Pass(500ms);
  EXPECT_EQ(NewStarts(),
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:00|1|Northwind|\n");
  launcher->Pass(1h);
  EXPECT_EQ(NewStarts(), "");
  EXPECT_FALSE(TimerRuns());
}

TEST_F(EventScripts, AreToldOfAllWhenAnEventConcernsNoSingleComponent) {
  machine.files.Put("C:\\srv\\randomize.xml",
                    "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n</Randomize>\r\n");
  machine.random.Script({0.5});
  StartLauncher();
  launcher->Click("Command2");
  launcher->Pass(1s);
  EXPECT_EQ(NewStarts(),
            "randomized|all|Randomize was succesfull, 1 change(s)|2026-11-21 10:00:00|1|"
            "Northwind|\n");
}

TEST_F(EventScripts, AreStartedByATickOfTheirOwnAfterTheRestart) {
  Toggle();
  launcher->Pass(70s);
  machine.recorder.Forget();
  Crash(kMap);
  launcher->Pass(6s);
  std::string order;
  for (const std::string& call : machine.recorder.Calls()) {
    if (call.starts_with("processes.launch") || call.starts_with("scripts.start")) {
      order += call + '\n';
    }
  }
  EXPECT_EQ(order,
            "processes.launch(C:\\srv\\map-server.exe)\nscripts.start(C:\\srv\\on-event.cmd)\n"
            "scripts.start(C:\\srv\\on-event.cmd)\n");
}

TEST_F(EventScripts, NeverRunUnlessSwitchedOn) {
  launcher->Check("chkEvents", 0, false);
  Toggle();
  EXPECT_FALSE(TimerRuns());
  launcher->Pass(1min);
  EXPECT_EQ(Attempts(), 0u);
  EXPECT_EQ(machine.recorder.CountOf("files.exists(C:\\srv\\on-event.cmd"), 0u);
}

TEST_F(EventScripts, AreNotStartedForWhatWaitedWhenTheyWereSwitchedOff) {
  Toggle();
  launcher->Check("chkEvents", 0, false);
  launcher->Pass(1s);
  launcher->Check("chkEvents", 0, true);
  launcher->Pass(1min);
  EXPECT_EQ(NewStarts(), "");
}

TEST_F(EventScripts, ThatAreMissingAreNotStarted) {
  machine.files.Remove(kScript);
  Toggle();
  launcher->Pass(1s);
  EXPECT_EQ(Attempts(), 0u);
  launcher->ForgetLog();
  machine.files.Put(kScript, "");
  launcher->Pass(1min);
  EXPECT_EQ(NewStarts(), "");
  Toggle();
  launcher->Pass(1s);
  EXPECT_EQ(NewStarts(), "stopped|map|Map Server Stopped!|2026-11-21 10:01:01|1|Northwind|\n");
}

TEST_F(EventScripts, ThatTheSystemRefusesAreGivenUpWithoutAWord) {
  machine.scripts.refuses = true;
  Toggle();
  launcher->ForgetLog();
  launcher->Pass(1min);
  EXPECT_EQ(Attempts(), 1u);
  EXPECT_EQ(launcher->Log(), "10:00:10 0 Listening Map Server\n");
  EXPECT_FALSE(launcher->Ended());
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(EventScripts, ThatAreRefusedTakeNoPlaceOfThoseThatRun) {
  machine.scripts.refuses = true;
  StartAndStopAll();
  launcher->Pass(500ms);
  EXPECT_EQ(Attempts(), 6u);
  EXPECT_FALSE(TimerRuns());
}

TEST_F(EventScripts, RunOnceAMinuteForAComponentsEventAndTellHowManyThereWere) {
  for (int i = 0; i < 6; ++i) {  // Started at 0, 2 and 4 seconds, stopped at 1, 3 and 5.
    Toggle();
    launcher->Pass(1s);
  }
  EXPECT_EQ(NewStarts(),
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:00|1|Northwind|\n"
            "stopped|map|Map Server Stopped!|2026-11-21 10:00:01|1|Northwind|\n");
  launcher->Pass(54s);
  EXPECT_EQ(NewStarts(), "");
  launcher->Pass(5s);
  EXPECT_EQ(NewStarts(),
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:04|2|Northwind|\n"
            "stopped|map|Map Server Stopped!|2026-11-21 10:00:05|2|Northwind|\n");
  launcher->Pass(1h);
  EXPECT_EQ(NewStarts(), "");
}

TEST_F(EventScripts, CountTheMinuteFromTheStartAndNotFromTheEvent) {
  Toggle();
  launcher->Pass(500ms);
  Toggle();
  Toggle();
  NewStarts();
  launcher->Pass(59999ms);
  EXPECT_EQ(NewStarts().find("started|map"), std::string::npos);
  launcher->Pass(1ms);
  EXPECT_EQ(NewStarts(),
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:00|1|Northwind|\n");
}

TEST_F(EventScripts, OfOtherComponentsAndEventsDoNotWaitForEachOther) {
  StartAndStopAll();
  launcher->Pass(1s);
  EXPECT_EQ(NewStarts(),
            "started|login|Login Server Started! [Low Priority]|2026-11-21 10:00:00|1|Northwind|\n"
            "started|char|Char Server Started [Norm Priority]|2026-11-21 10:00:00|1|Northwind|\n"
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:00|1|Northwind|\n"
            "stopped|login|Login Server Stopped!|2026-11-21 10:00:00|1|Northwind|\n"
            "stopped|char|Char Server Stopped!|2026-11-21 10:00:00|1|Northwind|\n"
            "stopped|map|Map Server Stopped!|2026-11-21 10:00:00|1|Northwind|\n");
}

TEST_F(EventScripts, RunFiveAtATimeAndTheRestInTheirTurn) {
  machine.scripts.runTime = 5000;
  StartAndStopAll();
  launcher->Pass(5s);
  EXPECT_EQ(machine.scripts.Running(), 5u);
  NewStarts();
  launcher->Pass(500ms);
  EXPECT_EQ(NewStarts(), "stopped|map|Map Server Stopped!|2026-11-21 10:00:00|1|Northwind|\n");
}

TEST_F(EventScripts, ThatWaitTakeInWhatHappensMeanwhile) {
  machine.scripts.runTime = SimScripts::kForEver;
  StartAndStopAll();
  launcher->Pass(1s);
  NewStarts();
  for (int i = 0; i < 2000; ++i) Toggle();  // A thousand starts and a thousand stops.
  launcher->Pass(70s);
  EXPECT_EQ(NewStarts(),
            "stopped|map|Map Server Stopped!|2026-11-21 10:00:01|1001|Northwind|\n"
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:01|1000|Northwind|\n");
}

TEST_F(EventScripts, ThatRunLongerThanAMinuteAreEnded) {
  machine.scripts.runTime = SimScripts::kForEver;
  Toggle();
  launcher->Pass(60s);
  EXPECT_EQ(machine.recorder.CountOf("scripts.end"), 0u);
  launcher->Pass(500ms);
  EXPECT_EQ(machine.recorder.CountOf("scripts.end"), 1u);
  EXPECT_EQ(machine.scripts.Running(), 0u);
  launcher->Pass(1s);
  EXPECT_EQ(machine.recorder.CountOf("scripts.end"), 1u);
  EXPECT_FALSE(TimerRuns());
}

TEST_F(EventScripts, ThatOutliveTheirEndCountAsRunningAndAreEndedAgain) {
  machine.scripts.runTime = SimScripts::kForEver;
  machine.scripts.outlivesItsEnd = true;
  StartAndStopAll();
  launcher->Pass(10min);
  EXPECT_EQ(machine.scripts.Running(), 5u);
  EXPECT_EQ(Attempts(), 5u);
  machine.scripts.outlivesItsEnd = false;
  launcher->Pass(1s);
  EXPECT_EQ(Attempts(), 6u);
}

TEST_F(EventScripts, ThatHangDelayNoRestart) {
  machine.scripts.runTime = SimScripts::kForEver;
  machine.scripts.outlivesItsEnd = true;
  StartAndStopAll();
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  launcher->ForgetLog();
  Crash(kMap);
  launcher->Pass(4s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 0 Map Server Started [High Priority]\n");
}

TEST_F(EventScripts, AreStartedAtOnceWhenTheLauncherIsClosedAndLeftAlone) {
  machine.scripts.runTime = SimScripts::kForEver;
  Toggle();
  launcher->Pass(1s);
  NewStarts();
  Toggle();
  launcher->Close();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(NewStarts(), "stopped|map|Map Server Stopped!|2026-11-21 10:00:01|1|Northwind|\n");
  EXPECT_EQ(machine.scripts.Running(), 2u);
  EXPECT_EQ(machine.recorder.CountOf("scripts.end"), 0u);
}

TEST_F(EventScripts, OfLongAgoHoldNoneBackWhenTheLauncherIsClosed) {
  Toggle();
  Toggle();
  launcher->Pass(1h);
  Toggle();
  launcher->Pass(1s);
  NewStarts();
  Toggle();
  launcher->Close();
  EXPECT_EQ(NewStarts(), "stopped|map|Map Server Stopped!|2026-11-21 11:00:01|1|Northwind|\n");
}

TEST_F(EventScripts, OfTheSameMinuteAreLostWhenTheLauncherIsClosed) {
  Toggle();
  Toggle();
  launcher->Pass(1s);
  Toggle();
  Toggle();
  NewStarts();
  launcher->Close();
  EXPECT_EQ(NewStarts(), "");
}

TEST_F(EventScripts, AreStartedAtOnceWhenTheLauncherIsUnloaded) {
  Toggle();
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  EXPECT_EQ(NewStarts(),
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:00|1|Northwind|\n");
}

TEST_F(EventScripts, AreStartedBeforeTheBoxOfAFaultStandsThere) {
  Toggle();
  launcher->Check("chkAK", 0);
  launcher->Type("TTO", 0, "99999999999");
  std::string startedBefore = "no box";
  machine.recorder.beforeEach = [&] {
    if (machine.recorder.Calls().back().starts_with("boxes.")) startedBefore = NewStarts();
  };
  launcher->Click("bStart", 0);
  machine.recorder.beforeEach = nullptr;
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(startedBefore,
            "started|map|Map Server Started [High Priority]|2026-11-21 10:00:00|1|Northwind|\n");
}

TEST_F(EventScripts, AreNotStartedAtTheEndOfTheSession) {
  Toggle();
  launcher->AskForEndOfSession();
  launcher->Pass(10s);
  launcher->EndSession();
  EXPECT_EQ(NewStarts(), "");
}

TEST(ScriptValues, HoldNoControlCharactersAndNoDoubleQuotes) {
  EXPECT_EQ(ScriptValueOf("a \"b\"\r\n\tc\x01%d%&\xE9"), "a 'b'   c %d%&\xE9");
}

TEST(ScriptValues, AreCut) {
  EXPECT_EQ(ScriptValueOf(std::string(1000, 'a') + "\n").size(), 1000u);
}

}  // namespace
}  // namespace tarvo
