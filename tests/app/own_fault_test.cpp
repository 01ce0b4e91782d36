// The launcher dies of a fault of its own and is started again: what it had under control is under
// control again, and nothing else.

#include <new>
#include <stdexcept>

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class OwnFault : public LauncherStory {
 protected:
  /// The launcher dies of an access violation; the system starts it again, or does not.
  void Die() {
    machine.selfRestart.Crash();
    KillLauncher();
    if (machine.selfRestart.started) StartLauncher();
  }
  std::string Resumed() const { return machine.selfRestart.Order().arguments; }
};

TEST_F(OwnFault, WhatWasUnderControlIsAgainThoughNothingStartsByItself) {
  StartWithAllServers();
  launcher->Click("bStart", 1);
  launcher->Pass(2min);
  const ProcessId login = Process(kLogin).id;
  const ProcessId map = Process(kMap).id;
  Die();
  ASSERT_TRUE(machine.selfRestart.started);
  EXPECT_EQ(launcher->Log().substr(launcher->Log().find("10:02:11 0 Launcher Ready!")),
            "10:02:11 0 Launcher Ready!\n"
            "10:02:11 1 Attention!, server components found in memory.\n"
            "10:02:11 2 Attention!, the launcher was restarted after a fault of its own.\n"
            "10:02:11 0 [login-server.exe] was found in memory!\n"
            "10:02:11 0 Login Server under control! [Low Priority]\n"
            "10:02:11 0 Listening Login Server\n"
            "10:02:11 0 [map-server.exe] was found in memory!\n"
            "10:02:11 0 Map Server under control [High Priority]\n"
            "10:02:11 0 Listening Map Server\n");
  EXPECT_EQ(launcher->Of(ComponentKind::Login).ProcessId, login);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, map);
  EXPECT_EQ(launcher->Of(ComponentKind::Char).ProcessId, 0U);
  EXPECT_EQ(machine.processes.Named(kChar).size(), 0U);
  EXPECT_EQ(launcher->TheForm().frame.SSTab1.Page(), 0);
  Crash(kMap);
  launcher->Pass(6s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1U);
}

TEST_F(OwnFault, AServerThatDiedMeanwhileIsStarted) {
  StartWithAllServers();
  launcher->Pass(2min);
  machine.selfRestart.Crash();
  KillLauncher();
  Crash(kChar);
  StartLauncher();
  EXPECT_EQ(machine.processes.Named(kChar).size(), 1U);
  EXPECT_EQ(launcher->CountInLog("Char Server Started [Norm Priority]"), 1U);
}

TEST_F(OwnFault, WhatTheOperatorHadStoppedStaysSoWithAutoStartToo) {
  for (const char* name : {"Login", "Char", "Map"}) {
    machine.SetSetting(std::string(name) + "AutoStart", "1");
  }
  StartLauncher();
  launcher->Pass(11s);
  launcher->Click("bStart", 4);
  launcher->Pass(1min);
  EXPECT_TRUE(Resumed().starts_with("--resume none ")) << Resumed();
  Die();
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, 0U);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 0U);
}

TEST_F(OwnFault, WithinAMinuteOfItsStartItStaysDown) {
  StartWithAllServers();
  launcher->Pass(49s);
  Die();
  ASSERT_TRUE(machine.selfRestart.started) << "a minute to the millisecond";
  launcher->Pass(59s);
  Die();
  EXPECT_FALSE(machine.selfRestart.started);
}

TEST_F(OwnFault, WhatTheOperatorHasSetAndNotSavedIsTakenOver) {
  machine.files.Put("C:\\srv\\a map-server.exe.exe", "MZ");
  StartLauncher();
  launcher->Choose("Exes", 2, kMap);
  launcher->Choose("Prior", 2, "V-High");
  launcher->Check("chkAK", 2);
  launcher->Type("TTO", 2, "33");
  launcher->Check("SMinimized", 0);
  launcher->Click("bStart", 3);
  launcher->Pass(2min);
  EXPECT_EQ(machine.Setting("MapPri"), "(none)");
  Die();
  EXPECT_EQ(launcher->TheForm().servers.Exes[ComponentKind::Map].Text(), kMap);
  EXPECT_EQ(launcher->TheForm().servers.TTO[ComponentKind::Map].Text(), "33");
  EXPECT_TRUE(launcher->TheForm().servers.chkAK[2].Checked());
  EXPECT_EQ(launcher->Window().State(), WindowState::Normal) << "as it was, not as it starts";
  EXPECT_EQ(launcher->CountInLog("Map Server under control [V-High Priority]"), 1U);
  launcher->Click("bStart", 4);
  launcher->Close();
  EXPECT_EQ(machine.Setting("MapPri"), "4");
  EXPECT_EQ(machine.Setting("MapTimeout"), "33");
}

TEST_F(OwnFault, AMinimizedLauncherComesBackMinimized) {
  StartWithAllServers();
  launcher->Window().SetState(WindowState::Minimized);
  launcher->Pass(2min);
  Die();
  EXPECT_EQ(launcher->Window().State(), WindowState::Minimized);
  EXPECT_FALSE(launcher->Window().Visible());
}

TEST_F(OwnFault, TheLineGoesToTheDaysFileWhenOneIsKept) {
  StartLauncher();
  EXPECT_EQ(machine.selfRestart.Order().logFolder, "");
  launcher->Check("WLog", 0);
  EXPECT_EQ(machine.selfRestart.Order().logFolder, "C:\\srv");
  launcher->Check("WLog", 0, false);
  EXPECT_EQ(machine.selfRestart.Order().logFolder, "");
}

TEST_F(OwnFault, AServerIsKeptFromTheMomentOfItsStartNotOfThePressEnd) {
  StartLauncher();
  std::string whileMapStarts;
  machine.recorder.beforeEach = [&] {
    if (!machine.processes.Named(kChar).empty() && machine.processes.Named(kMap).empty()) {
      whileMapStarts = Resumed().substr(0, Resumed().find(" --settings"));
    }
  };
  launcher->Click("bStart", 3);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(whileMapStarts, "--resume login,char");
}

TEST_F(OwnFault, ARestartThatIsHalfDoneKeepsWhatItIsAboutToStartAgain) {
  StartWithAllServers();
  std::string least = "all";
  machine.recorder.beforeEach = [&] {
    if (!Resumed().starts_with("--resume login,char,map ")) least = Resumed();
  };
  launcher->Check("chkAK", 3);
  launcher->Pass(6s);
  Crash(kMap);
  launcher->Pass(6s);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(launcher->CountInLog("Map Server Autokill: Closing Components..."), 1U);
  EXPECT_EQ(launcher->CountInLog("Char Server Stopped!"), 1U);
  EXPECT_EQ(least, "all");
}

TEST_F(OwnFault, AnEndedLauncherIsNotStartedAgain) {
  StartLauncher();
  EXPECT_NE(Resumed(), "");
  launcher->Close();
  EXPECT_EQ(Resumed(), "");
  StartLauncher();
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  EXPECT_EQ(Resumed(), "");
}

TEST_F(OwnFault, AFaultOfTheRunTimeEndsItWithItsBoxAsEver) {
  StartLauncher();
  launcher->Pass(2min);
  launcher->Check("chkAK", 0);
  launcher->Type("TTO", 0, "");
  machine.boxes.whileNextIsOpen = [&] { EXPECT_EQ(Resumed(), ""); };
  launcher->Click("bStart", 3);
  EXPECT_EQ(machine.boxes.NewTexts().substr(0, 20), "Run-time error '13':");
  EXPECT_EQ(launcher->ExitCode(), kExitFault);
  EXPECT_EQ(machine.recorder.CountOf("selfRestart.die"), 0U);
}

TEST_F(OwnFault, MemoryThatRunsOutInATickIsOne) {
  StartWithAllServers();
  launcher->Pass(2min);
  int calls = 0;
  machine.recorder.beforeEach = [&] {
    if (++calls == 1) throw std::bad_alloc();
  };
  EXPECT_THROW(launcher->Pass(10s), LauncherKilled);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(machine.recorder.CountOf("selfRestart.die(out of memory)"), 1U);
  EXPECT_TRUE(machine.selfRestart.started);
  EXPECT_EQ(machine.boxes.NewTexts(), "");
  StartLauncher();
  EXPECT_EQ(launcher->CountInLog("Map Server under control [High Priority]"), 1U);
}

TEST_F(OwnFault, OneThatIsNotFollowedByARestartIsToldInABox) {
  StartLauncher();
  int calls = 0;
  machine.recorder.beforeEach = [&] {
    if (++calls == 1) throw std::logic_error("broken");
  };
  launcher->Pass(10s);
  EXPECT_EQ(machine.recorder.CountOf("selfRestart.die(exception)"), 1U);
  EXPECT_EQ(machine.boxes.NewTexts(), "Run-time error '51':\r\n\r\nbroken\n");
  EXPECT_EQ(launcher->ExitCode(), kExitFault);
}

}  // namespace
}  // namespace tarvo
