#include "core/start_stop.h"

#include <algorithm>

#include "form/status_colours.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Starting : public LauncherStory {
 protected:
  Starting() { StartFresh(); }
  void StartFresh() {
    StartLauncher();
    launcher->ForgetLog();
    machine.recorder.Forget();
  }
  const CommandButton& Button(std::size_t index) {
    return launcher->TheForm().status.bStart[index];
  }
  bool ChooserEnabled(ComponentKind kind) {
    return launcher->TheForm().servers.Exes[kind].Enabled();
  }
};

TEST_F(Starting, ALaunchIsToldRankedWatchedAndSeenOnItsButton) {
  launcher->Click("bStart", 0);
  EXPECT_EQ(launcher->Log(), "10:00:00 0 Login Server Started! [Low Priority]\n");
  EXPECT_EQ(Process(kLogin).priorityClass, 0x4000u);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).ProcessId, Process(kLogin).id);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl PrepL");
  EXPECT_EQ(Button(0).Caption(), "Stop");
  EXPECT_EQ(Button(0).Background(), Rgb(0, 192, 0));
  EXPECT_FALSE(ChooserEnabled(ComponentKind::Login));
  EXPECT_TRUE(ChooserEnabled(ComponentKind::Char));
}

TEST_F(Starting, TheStepsOfALaunchHaveTheirOrder) {
  launcher->Click("bStart", 2);
  const std::string id = std::to_string(Process(kMap).id);
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{"processes.snapshot()", "workingFolder.moveInto(C:\\srv\\)",
                                      "processes.launch(C:\\srv\\map-server.exe)",
                                      "processes.priority(" + id + ", 32768)"}));
}

TEST_F(Starting, OnlyTheLoginServersLineHasItsMark) {
  launcher->Click("bStart", 2);
  launcher->Click("bStart", 1);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 Map Server Started [High Priority]\n"
            "10:00:00 0 Char Server Started [Norm Priority]\n");
}

TEST_F(Starting, ARunningProcessIsTakenUnderControlInsteadOfASecondOne) {
  const ProcessId login = machine.processes.StartForeign("LOGIN-SERVER.EXE");
  const ProcessId map = machine.processes.StartForeign(kMap);
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 [login-server.exe] was found in memory!\n"
            "10:00:00 0 Login Server under control! [Low Priority]\n"
            "10:00:00 0 Listening Login Server\n"
            "10:00:00 0 [map-server.exe] was found in memory!\n"
            "10:00:00 0 Map Server under control [High Priority]\n"
            "10:00:00 0 Listening Map Server\n");
  EXPECT_EQ(machine.processes.Launches(), 0u);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).ProcessId, login);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, map);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl");
  EXPECT_EQ(launcher->Of(ComponentKind::Login).AlarmState, AlarmState::Healthy);
  EXPECT_EQ(Process(kMap).priorityClass, 0x8000u);
}

TEST_F(Starting, AnAdoptedServerIsProbedAtOnce) {
  launcher->Check("chkAK", 1);
  machine.processes.StartForeign(kChar);
  launcher->Click("bStart", 1);
  EXPECT_EQ(machine.network.Connects().size(), 1u);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Char), "CCtrl TTC");
}

TEST_F(Starting, AnAdoptedServerThatDoesNotAnswerIsFrozenAndStillToldAsListening) {
  launcher->Check("chkAK", 1);
  machine.processes.StartForeign(kChar);
  Freeze(kChar);
  launcher->Click("bStart", 1);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 [char-server.exe] was found in memory!\n"
            "10:00:00 0 Char Server under control [Norm Priority]\n"
            "10:00:00 1 Char server freeze!... waiting...\n"
            "10:00:00 0 Listening Char Server\n");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Char), "CCtrl TChar");
  EXPECT_EQ(machine.network.Connects().size(), 2u);
}

TEST_F(Starting, StartAllStartsOnlyWhatIsNotKnownToRunAndTurnsToTheFirstPage) {
  launcher->Click("bStart", 1);
  launcher->ForgetLog();
  launcher->TheForm().frame.SSTab1.SetPage(1);
  launcher->Click("bStart", 3);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 Login Server Started! [Low Priority]\n"
            "10:00:00 0 Map Server Started [High Priority]\n");
  EXPECT_EQ(launcher->TheForm().frame.SSTab1.Page(), 0);
  EXPECT_EQ(Button(3).Caption(), "Start All");
  EXPECT_EQ(Button(3).ToolTip(), "Start all servers");
}

TEST_F(Starting, StartAllTurnsToTheFirstPageWhenAllRunAlready) {
  launcher->Click("bStart", 3);
  launcher->TheForm().frame.SSTab1.SetPage(2);
  launcher->ForgetLog();
  launcher->Click("bStart", 3);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(launcher->TheForm().frame.SSTab1.Page(), 0);
}

TEST_F(Starting, StartAllTurnsToTheFirstPageOnceAllAreStarted) {
  launcher->TheForm().frame.SSTab1.SetPage(1);
  int launches = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("processes.launch(")) return;
    ++launches;
    EXPECT_EQ(launcher->TheForm().frame.SSTab1.Page(), 1);
  };
  launcher->Click("bStart", 3);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(launches, 3);
}

TEST_F(Starting, AnAdoptedServerIsProbedBeforeItGetsItsPriority) {
  launcher->Check("chkAK", 0);
  machine.processes.StartForeign(kLogin);
  machine.recorder.Forget();
  launcher->Click("bStart", 0);
  const auto& calls = machine.recorder.Calls();
  const auto at = [&calls](const std::string& beginning) {
    return std::find_if(calls.begin(), calls.end(),
                        [&](const std::string& call) { return call.starts_with(beginning); }) -
           calls.begin();
  };
  EXPECT_LT(at("sockets.connect("), at("processes.priority("));
  EXPECT_EQ(machine.recorder.CountOf("processes.priority("), 1u);
}

TEST_F(Starting, AChosenPriorityIsSetBeforeItIsTold) {
  launcher->Click("bStart", 2);
  launcher->ForgetLog();
  std::size_t set = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("processes.priority(")) return;
    ++set;
    EXPECT_EQ(launcher->Log(), "");
  };
  launcher->Choose("Prior", 2, "Low");
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(set, 1u);
  EXPECT_EQ(launcher->Log(), "10:00:00 1 Map Server running with Low priority\n");
}

TEST_F(Starting, ALineIsOnTheScreenBeforeItIsInTheFile) {
  launcher->Check("WLog", 0);
  std::size_t written = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("files.append(")) return;
    ++written;
    const std::string screen = launcher->TheForm().status.RTLog.Text();
    EXPECT_TRUE(screen.ends_with("Map Server Started [High Priority]\r\n"));
  };
  launcher->Click("bStart", 2);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(written, 1u);
}

TEST_F(Starting, StopAllStopsOnlyWhatIsKnownToRun) {
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 2);
  machine.processes.StartForeign(kChar);
  launcher->ForgetLog();
  launcher->Click("bStart", 4);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 1 Login Server Stopped!\n"
            "10:00:00 1 Map Server Stopped!\n");
  EXPECT_EQ(machine.processes.Named(kChar).size(), 1u);
  EXPECT_EQ(Button(4).Caption(), "Stop All");
  EXPECT_EQ(Button(4).ToolTip(), "Stop all servers");
}

TEST_F(Starting, AStopEndsTheProcessItsWatchesAndItsLight) {
  for (ComponentKind kind : kComponents) {
    launcher->Check("chkAK", IndexOf(kind));
    launcher->Type("TTO", IndexOf(kind), "5");
  }
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  for (ComponentKind kind : kComponents) {
    ASSERT_NE(launcher->Of(kind).RunningHandle, 0);
    launcher->Click("bStart", IndexOf(kind));
    EXPECT_EQ(launcher->RunningTimers(kind), "");
    EXPECT_EQ(launcher->Of(kind).ProcessId, 0u);
    EXPECT_EQ(launcher->Of(kind).RunningHandle, 0);
    EXPECT_EQ(launcher->Of(kind).AlarmState, AlarmState::NotWatched);
    EXPECT_EQ(ColourOf(launcher->TheForm().frame.Sem[kind].State()), Rgb(128, 128, 128));
    EXPECT_TRUE(ChooserEnabled(kind));
    EXPECT_EQ(Button(IndexOf(kind)).Caption(), "Start");
    EXPECT_EQ(Button(IndexOf(kind)).Background(), Rgb(192, 192, 192));
  }
  launcher->Pass(2s);
  for (const Light& light : launcher->TheForm().frame.Sem)
    EXPECT_EQ(ColourOf(light.State()), 0xC0C0C0u);
  EXPECT_EQ(machine.processes.Windows().size(), 1u);
}

TEST_F(Starting, AStopDisarmsEverythingBeforeTheKillAndIsSeenAfterIt) {
  for (const ComponentKind kind : kComponents) {
    StartFresh();
    launcher->Check("chkAK", IndexOf(kind));
    launcher->Click("bStart", 3);
    launcher->Pass(11s);
    int kills = 0;
    machine.recorder.beforeEach = [&] {
      if (!machine.recorder.Calls().back().starts_with("processes.end(")) return;
      ++kills;
      EXPECT_EQ(launcher->RunningTimers(kind), "");
      EXPECT_EQ(launcher->Of(kind).ProcessId, 0u);
      EXPECT_EQ(launcher->Of(kind).RunningHandle, 0);
      EXPECT_EQ(launcher->Of(kind).AlarmState, AlarmState::Healthy);
      EXPECT_EQ(launcher->TheForm().frame.Sem[kind].State(), LightState::Healthy);
      EXPECT_FALSE(ChooserEnabled(kind));
      EXPECT_EQ(Button(IndexOf(kind)).Caption(), "Stop");
      EXPECT_EQ(Button(IndexOf(kind)).Background(), Rgb(0, 192, 0));
    };
    launcher->Click("bStart", IndexOf(kind));
    machine.recorder.beforeEach = nullptr;
    EXPECT_EQ(kills, 1) << NameOf(kind);
  }
}

TEST_F(Starting, AStopInTheMiddleOfAFreezeOrOfTheGraceDisarmsEverything) {
  launcher->Check("chkAK", 0);
  launcher->Click("bStart", 0);
  ASSERT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl PrepL");
  launcher->Click("bStart", 0);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "");
  launcher->Click("bStart", 0);
  Freeze(kLogin);
  launcher->Pass(4s);
  ASSERT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TLogin");
  launcher->Click("bStart", 0);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "");
  launcher->ForgetLog();
  launcher->Pass(10min);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_TRUE(machine.processes.Named(kLogin).empty());
}

TEST_F(Starting, EveryCopyOfAStoppedServersNameIsEnded) {
  launcher->Click("bStart", 2);
  machine.processes.StartForeign("MAP-SERVER.EXE");
  launcher->Click("bStart", 2);
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
}

TEST_F(Starting, AServerThatRefusesToDieIsToldAndTheWindowComesBackToLife) {
  machine.processes.Program(kMap).refusesToDie = true;
  launcher->Click("bStart", 2);
  launcher->Pass(11s);
  launcher->ForgetLog();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(),
            "10:00:11 1 Map Server Stopped!\n"
            "10:00:16 2 [map-server.exe] refuses to end, still in memory!\n");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Map), "");
  EXPECT_EQ(Button(2).Caption(), "Start");
  EXPECT_TRUE(ChooserEnabled(ComponentKind::Map));
  launcher->ForgetLog();
  launcher->Pass(1min);
  EXPECT_EQ(launcher->Log(), "");
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(),
            "10:01:16 0 [map-server.exe] was found in memory!\n"
            "10:01:16 0 Map Server under control [High Priority]\n"
            "10:01:16 0 Listening Map Server\n");
}

TEST_F(Starting, AServerThatDiesAMomentLaterIsWaitedForWithoutAWord) {
  machine.processes.Program(kMap).dyingTime = 700;
  launcher->Click("bStart", 2);
  launcher->ForgetLog();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(), "10:00:00 1 Map Server Stopped!\n");
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
}

TEST_F(Starting, AMissingExecutableIsFatal) {
  machine.files.Remove("C:\\srv\\char-server.exe");
  launcher->Click("bStart", 3);
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\srv\\char-server.exe\n");
  EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Critical);
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 1);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 0u);
}

TEST_F(Starting, AnotherPriorityReachesARunningServerAtOnce) {
  launcher->Click("bStart", 3);
  launcher->ForgetLog();
  launcher->Choose("Prior", 0, "V-High");
  launcher->Choose("Prior", 1, "V-Low");
  launcher->Choose("Prior", 2, "Norm");
  EXPECT_EQ(launcher->Log(),
            "10:00:00 1 Login Server running with V-High priority.\n"
            "10:00:00 1 Char Server running with V-Low priority\n"
            "10:00:00 1 Map Server running with Norm priority\n");
  EXPECT_EQ(Process(kLogin).priorityClass, 0x80u);
  EXPECT_EQ(Process(kChar).priorityClass, 0x40u);
  EXPECT_EQ(Process(kMap).priorityClass, 0x20u);
}

TEST_F(Starting, APriorityOfAStoppedServerWaitsForItsStart) {
  launcher->Choose("Prior", 2, "V-High");
  EXPECT_EQ(launcher->Log(), "");
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(), "10:00:00 0 Map Server Started [V-High Priority]\n");
  EXPECT_EQ(Process(kMap).priorityClass, 0x80u);
}

TEST_F(Starting, WithoutAPriorityAServerRunsAtTheSystemsOwn) {
  machine.SetSetting("MapPri", "-1");
  StartFresh();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(), "10:00:00 0 Map Server Started [ Priority]\n");
  EXPECT_EQ(Process(kMap).priorityClass, 0x20u);
}

class Refusal : public Starting {
 protected:
  static constexpr char kNoServer[] = "Please, select the right servers from the list\n";
  static constexpr char kSameServer[] = "Please, select the right servers from the list!\n";
  static constexpr char kTooShort[] = "The min autokill time is 5 second, please check.\n";
};

TEST_F(Refusal, OneEmptyChooserBlocksEveryButton) {
  for (const char* value : {"LoginExe", "CharExe", "MapExe"}) {
    machine.SetSetting(value, "nothing such");
    StartFresh();
    for (std::size_t button = 0; button < 5; ++button) {
      launcher->Click("bStart", button);
      EXPECT_EQ(machine.boxes.NewTexts(), kNoServer) << value << button;
    }
    EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Exclamation);
    EXPECT_EQ(machine.boxes.Shown().back().buttons, BoxButtons::Ok);
    EXPECT_EQ(launcher->Log(), "");
    EXPECT_EQ(machine.processes.Launches(), 0u);
    machine.SetSetting(value, value == std::string("LoginExe") ? "login" : "char");
  }
}

TEST_F(Refusal, TwoEqualExecutablesBlockEveryButton) {
  for (const auto& [first, second] : {std::pair{0u, 1u}, std::pair{0u, 2u}, std::pair{1u, 2u}}) {
    StartFresh();
    launcher->Choose("Exes", first, "tarvo-launcher.exe");
    launcher->Choose("Exes", second, "tarvo-launcher.exe");
    for (std::size_t button = 0; button < 5; ++button) {
      launcher->Click("bStart", button);
      EXPECT_EQ(machine.boxes.NewTexts(), kSameServer) << first << second << button;
    }
    EXPECT_EQ(machine.processes.Launches(), 0u);
  }
}

TEST_F(Refusal, AnAutokillTimeBelowFiveBlocksWhenItsBoxIsChecked) {
  const struct {
    const char* text;
    bool refused;
  } cases[] = {{"4", true},    {"0", true},  {"5", false},  {"05", false},
               {"300", false}, {"-7", true}, {"4.5", true}, {"4.6", false}};
  for (std::size_t box = 0; box < 3; ++box) {
    for (const auto& c : cases) {
      for (bool checked : {true, false}) {
        StartFresh();
        launcher->Check("chkAK", box, true);
        launcher->Type("TTO", box, c.text);
        launcher->Check("chkAK", box, checked);
        launcher->Click("bStart", 4);
        EXPECT_EQ(machine.boxes.NewTexts(), c.refused && checked ? kTooShort : "")
            << box << ' ' << c.text << checked;
      }
    }
  }
}

TEST_F(Refusal, AnAutokillTimeThatIsNoNumberIsFatalEvenInADisabledBox) {
  const struct {
    const char* text;
    const char* box;
  } cases[] = {{"", "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nMapTimeout\n"},
               {"99999999999", "Run-time error '6':\r\n\r\nOverflow\r\n\r\nMapTimeout\n"}};
  for (const auto& c : cases) {
    machine.SetSetting("MapTimeout", c.text);
    StartFresh();
    launcher->Click("bStart", 0);
    EXPECT_EQ(machine.boxes.NewTexts(), c.box);
    EXPECT_TRUE(launcher->Ended());
    EXPECT_EQ(launcher->ExitCode(), 1);
  }
}

TEST_F(Refusal, ATimeThatIsNoNumberIsFatalBehindOneThatIsTooShort) {
  machine.SetSetting("MapTimeout", "");
  StartFresh();
  launcher->Check("chkAK", 0);
  launcher->Type("TTO", 0, "3");
  launcher->Click("bStart", 0);
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nMapTimeout\n");
  EXPECT_TRUE(launcher->Ended());
}

TEST_F(Refusal, TheReasonsHaveTheirOrder) {
  launcher->Choose("Exes", 0, kMap);
  launcher->Check("chkAK", 0);
  launcher->Type("TTO", 0, "3");
  launcher->Click("bStart", 0);
  EXPECT_EQ(machine.boxes.NewTexts(), kTooShort);
  machine.SetSetting("CharExe", "nothing such");
  machine.SetSetting("LoginTimeout", "");
  StartFresh();
  launcher->Click("bStart", 0);
  EXPECT_EQ(machine.boxes.NewTexts(), kNoServer);
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(Refusal, AStopIsRefusedAsAStartIs) {
  launcher->Check("chkAK", 0);
  launcher->Click("bStart", 0);
  launcher->Type("TTO", 0, "4");
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 4);
  EXPECT_EQ(machine.boxes.NewTexts(), std::string(kTooShort) + kTooShort);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
  EXPECT_EQ(Button(0).Caption(), "Stop");
}

TEST_F(Refusal, TheWatchesGoOnUnderARefusalsBox) {
  launcher->Check("chkAK", 1);
  launcher->Click("bStart", 0);
  launcher->Type("TTO", 1, "1");
  launcher->ForgetLog();
  machine.boxes.whileNextIsOpen = [&] {
    Crash(kLogin);
    launcher->Pass(6s);
  };
  launcher->Click("bStart", 1);
  EXPECT_EQ(launcher->Log(),
            "10:00:03 0 Listening Login Server\n"
            "10:00:05 2 Login Server crashed, restarting...\n"
            "10:00:05 0 Login Server Started! [Low Priority]\n");
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

}  // namespace
}  // namespace tarvo
