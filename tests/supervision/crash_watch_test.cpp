#include "supervision/crash_watch.h"

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Crashes : public LauncherStory {
 protected:
  Crashes() { StartWithAllServers(); }
  std::string LastFailure() { return launcher->TheForm().frame.lblErr.Caption(); }
};

TEST_F(Crashes, ADeadServerIsToldRedAndStartedAgainAtTheNextCheck) {
  const ProcessId old = Process(kLogin).id;
  Crash(kLogin);
  launcher->Pass(4s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Login Server crashed, restarting...\n"
            "10:00:15 0 Login Server Started! [Low Priority]\n");
  EXPECT_EQ(LastFailure(), "Login: 2026-11-21 10:00:15");
  EXPECT_NE(Process(kLogin).id, old);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).ProcessId, Process(kLogin).id);
  EXPECT_EQ(Process(kLogin).priorityClass, 0x4000u);
  launcher->Pass(3s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Login Server crashed, restarting...\n"
            "10:00:15 0 Login Server Started! [Low Priority]\n"
            "10:00:18 0 Listening Login Server\n");
}

TEST_F(Crashes, EachServerHasItsOwnWords) {
  Crash(kChar);
  Crash(kMap);
  launcher->Pass(4s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Char Server crashed, restarting...\n"
            "10:00:15 0 Char Server Started [Norm Priority]\n"
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 0 Map Server Started [High Priority]\n");
  EXPECT_EQ(LastFailure(), "Map: 2026-11-21 10:00:15");
}

TEST_F(Crashes, AServerWithoutAWindowIsEndedAndReplaced) {
  const ProcessId old = Process(kMap).id;
  machine.processes.CloseWindows(old);
  launcher->Pass(5s);
  EXPECT_NE(Process(kMap).id, old);
}

TEST_F(Crashes, AServerStartedAtTheEndOfALongTickHasAWholeIntervalToOpenItsWindow) {
  launcher->Check("chkAK", 3);
  machine.processes.Program(kMap).windowOpensAfter = 300;
  Process(kChar).program.refusesToDie = true;
  Crash(kMap);
  launcher->Pass(30s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_EQ(launcher->CountInLog("Map Server Started [High Priority]"), 1u);
}

TEST_F(Crashes, ASearchThatComesToNoResultChangesNothing) {
  const ProcessId map = Process(kMap).id;
  const auto handle = launcher->Of(ComponentKind::Map).RunningHandle;
  machine.processes.CloseWindows(map);
  machine.processes.TurnInACircle();
  launcher->Pass(5s);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(Process(kMap).id, map);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).RunningHandle, handle);
  EXPECT_NE(handle, 0);
  machine.processes.TurnInACircle(false);
  launcher->Pass(5s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
}

TEST_F(Crashes, ACrashTakesTheFreezeWatchBackToOff) {
  for (const char* moment : {"grace", "watching", "frozen"}) {
    launcher->Check("chkAK", 0);
    launcher->Click("bStart", 0);
    launcher->Click("bStart", 0);
    if (moment != std::string("grace")) {
      if (moment == std::string("frozen")) Freeze(kLogin);
      launcher->Pass(4s);
    }
    const std::string before = launcher->RunningTimers(ComponentKind::Login);
    EXPECT_EQ(before, moment == std::string("grace")      ? "LCtrl PrepL"
                      : moment == std::string("watching") ? "LCtrl TTL"
                                                          : "LCtrl TLogin");
    // The program dies at once after its start: only the crash watch and the grace are running.
    Crash(kLogin);
    machine.processes.Program(kLogin).diesAtOnce = true;
    launcher->Pass(moment == std::string("grace") ? 5s : 1s);
    EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl PrepL") << moment;
    machine.processes.Program(kLogin).diesAtOnce = false;
    launcher->Pass(5s);
  }
}

TEST_F(Crashes, TheStepsOfACrashHaveTheirOrder) {
  const ProcessId old = Process(kMap).id;
  machine.processes.CloseWindows(old);
  launcher->Pass(3999ms);
  machine.recorder.Forget();
  launcher->Pass(1ms);
  std::string steps;
  for (const std::string& call : machine.recorder.Calls()) {
    if (call.starts_with("processes.")) steps += call + "\n";
  }
  const std::string id = std::to_string(Process(kMap).id);
  EXPECT_EQ(steps, "processes.snapshot()\nprocesses.end(" + std::to_string(old) +
                       ")\nprocesses.snapshot()\nprocesses.launch(C:\\srv\\map-server.exe)\n"
                       "processes.priority(" +
                       id + ", 32768)\n");
}

TEST_F(Crashes, AServerThatDiesAtOnceAfterEachStartIsRestartedEveryFiveSecondsForEver) {
  machine.processes.Program(kMap).diesAtOnce = true;
  Crash(kMap);
  launcher->Pass(14s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 0 Map Server Started [High Priority]\n"
            "10:00:20 2 Map Server crashed, restarting...\n"
            "10:00:20 0 Map Server Started [High Priority]\n"
            "10:00:25 2 Map Server crashed, restarting...\n"
            "10:00:25 0 Map Server Started [High Priority]\n");
  EXPECT_EQ(LastFailure(), "Map: 2026-11-21 10:00:25");
  launcher->Pass(1h);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 723u);
  EXPECT_EQ(launcher->CountInLog("Listening Map Server"), 0u);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(Crashes, AWindowThatVanishesUnderTheWalkIsNoCrash) {
  // A pop-up of another program closed while the windows were walked; a healthy server was
  // restarted for it.
  for (int i = 0; i < 3; ++i) {
    const ProcessId other = machine.processes.StartForeign("popup.exe");
    machine.processes.VanishUnderWalk(machine.processes.WindowOf(other)->handle);
  }
  launcher->Pass(10s);
  EXPECT_EQ(launcher->Log(), "");
}

TEST_F(Crashes, WhatTheOperatorStoppedStaysStopped) {
  launcher->Click("bStart", 1);
  launcher->Check("chkAK", 3);
  Crash(kMap);
  launcher->Pass(1min);
  EXPECT_TRUE(machine.processes.Named(kChar).empty());
  EXPECT_EQ(launcher->CountInLog("Char Server Stopped!"), 1u);
}

TEST_F(Crashes, AMapCrashRestartsCharThenLoginWhenTheOperatorWantsIt) {
  launcher->Check("chkAK", 3);
  launcher->Pass(1s);
  Crash(kMap);
  launcher->Pass(3s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 1 Map Server Autokill: Closing Components...\n"
            "10:00:15 1 Char Server Stopped!\n"
            "10:00:15 0 Char Server Started [Norm Priority]\n"
            "10:00:15 1 Login Server Stopped!\n"
            "10:00:15 0 Login Server Started! [Low Priority]\n"
            "10:00:15 0 Map Server Started [High Priority]\n");
}

TEST_F(Crashes, AMapCrashLeavesAStoppedCharAlone) {
  launcher->Click("bStart", 1);
  launcher->Check("chkAK", 3);
  launcher->ForgetLog();
  Crash(kMap);
  launcher->Pass(4s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 1 Map Server Autokill: Closing Components...\n"
            "10:00:15 1 Login Server Stopped!\n"
            "10:00:15 0 Login Server Started! [Low Priority]\n"
            "10:00:15 0 Map Server Started [High Priority]\n");
}

TEST_F(Crashes, ACrashIsTroubleUntilTheNextProbe) {
  Crash(kLogin);
  launcher->Pass(4s);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).AlarmState, AlarmState::Trouble);
}

TEST_F(Crashes, ALoginOrCharCrashRestartsNoOther) {
  launcher->Check("chkAK", 3);
  const ProcessId map = Process(kMap).id;
  Crash(kLogin);
  Crash(kChar);
  launcher->Pass(4s);
  EXPECT_EQ(Process(kMap).id, map);
  EXPECT_EQ(launcher->CountInLog("Map Server Autokill: Closing Components..."), 0u);
}

TEST_F(Crashes, AMapCrashTellsOfTheOthersEvenWhenNoneRuns) {
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 1);
  launcher->Check("chkAK", 3);
  launcher->ForgetLog();
  Crash(kMap);
  launcher->Pass(4s);
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 1 Map Server Autokill: Closing Components...\n"
            "10:00:15 0 Map Server Started [High Priority]\n");
}

TEST_F(Crashes, ARemnantIsEndedBeforeTheCrashIsTold) {
  const std::string before = LastFailure();
  machine.processes.CloseWindows(Process(kMap).id);
  int kills = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("processes.end(")) return;
    ++kills;
    EXPECT_EQ(launcher->Log(), "");
    EXPECT_EQ(LastFailure(), before);
  };
  launcher->Pass(5s);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(kills, 1);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
}

TEST_F(Crashes, ARemnantThatRefusesToDieIsAdoptedAndWhatItsProbeSaysCounts) {
  Process(kMap).program.refusesToDie = true;
  machine.processes.CloseWindows(Process(kMap).id);
  launcher->Pass(5s);
  EXPECT_EQ(launcher->CountInLog("[map-server.exe] was found in memory!"), 1u);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).AlarmState, AlarmState::Healthy);
}

TEST_F(Crashes, ARemnantThatTakesItsTimeToDieIsReplacedAtTheNextCheckAtTheLatest) {
  machine.processes.Program(kMap).dyingTime = 300;
  Crash(kMap);
  launcher->Pass(15s);
  machine.processes.CloseWindows(Process(kMap).id);
  launcher->Pass(10s);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, Process(kMap).id);
  EXPECT_NE(machine.processes.WindowOf(Process(kMap).id), nullptr);
}

}  // namespace
}  // namespace tarvo
