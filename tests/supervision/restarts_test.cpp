// What the crash watch does when another part of the program asks, or offers to take over.
#include <gtest/gtest.h>

#include "tests/supervision/crash_desk.h"

namespace tarvo {
namespace {

constexpr ComponentKind kLoginKind = ComponentKind::Login;
constexpr ComponentKind kCharKind = ComponentKind::Char;
constexpr ComponentKind kMapKind = ComponentKind::Map;

TEST(RestartRunning, GoesFromLoginByCharToMap) {
  CrashDesk desk;
  desk.crashes.RestartRunning();
  EXPECT_EQ(desk.NewLines(),
            "Restarting Server\n"
            "Login Server Stopped!\nLogin Server Started! [V-Low Priority]\n"
            "Char Server Stopped!\nChar Server Started [V-Low Priority]\n"
            "Map Server Stopped!\nMap Server Started [V-Low Priority]\n");
}

TEST(RestartRunning, LeavesAStoppedOneAlone) {
  CrashDesk desk;
  desk.startStop.StopComponent(kCharKind);
  desk.NewLines();
  desk.crashes.RestartRunning();
  EXPECT_EQ(desk.NewLines(),
            "Restarting Server\n"
            "Login Server Stopped!\nLogin Server Started! [V-Low Priority]\n"
            "Map Server Stopped!\nMap Server Started [V-Low Priority]\n");
}

TEST(RestartRunning, WithNothingRunningSaysNothing) {
  CrashDesk desk;
  for (ComponentKind kind : kComponents) desk.startStop.StopComponent(kind);
  desk.NewLines();
  desk.crashes.RestartRunning();
  EXPECT_EQ(desk.NewLines(), "");
  EXPECT_TRUE(desk.machine.processes.Named(kLogin).empty());
}

TEST(RestartRunning, LeavesAServerAloneThatHasNotBeenCheckedSinceItsStart) {
  CrashDesk desk;
  desk.form.servers.chkAK[3].SetChecked(true);
  desk.startStop.StopComponent(kCharKind);
  desk.startStop.StartComponent(kCharKind);
  const ProcessId started = desk.components[kCharKind].ProcessId;
  desk.NewLines();
  desk.crashes.MapAutokillRestart();
  desk.crashes.Check(kLoginKind);
  desk.crashes.RestartRunning();
  EXPECT_EQ(desk.components[kCharKind].ProcessId, started);
  EXPECT_EQ(desk.NewLines(),
            "Map Server Autokill: Closing Components...\n"
            "Login Server Stopped!\nLogin Server Started! [V-Low Priority]\n"
            "Restarting Server\n"
            "Login Server Stopped!\nLogin Server Started! [V-Low Priority]\n"
            "Map Server Stopped!\nMap Server Started [V-Low Priority]\n");
}

TEST(TakingOver, IsAskedForEachCrashAndRefusedEachIsRestarted) {
  CrashDesk desk;
  std::string asked;
  desk.crashes.upgradeTakesOver = [&](ComponentKind kind) {
    asked += NameOf(kind);
    return false;
  };
  for (ComponentKind kind : kComponents) {
    desk.Crash(kind);
    desk.crashes.Check(kind);
    EXPECT_NE(desk.components[kind].ProcessId, 0u);
  }
  EXPECT_EQ(asked, "LoginCharMap");
}

TEST(TakingOver, LeavesTheRestartOut) {
  CrashDesk desk;
  desk.form.servers.chkAK[3].SetChecked(true);
  desk.crashes.upgradeTakesOver = [](ComponentKind) { return true; };
  desk.Crash(kMapKind);
  desk.NewLines();
  desk.crashes.Check(kMapKind);
  EXPECT_EQ(desk.NewLines(), "Map Server crashed, restarting...\n");
  EXPECT_EQ(desk.components[kMapKind].ProcessId, 0u);
  EXPECT_TRUE(desk.machine.processes.Named(kMap).empty());
}

TEST(TakingOver, IsAskedAgainAtEachCheckUntilTheServerIsBack) {
  CrashDesk desk;
  int asked = 0;
  desk.crashes.upgradeTakesOver = [&](ComponentKind) { return ++asked < 3; };
  desk.Crash(kMapKind);
  desk.NewLines();
  for (int check = 0; check < 3; ++check) {
    EXPECT_TRUE(desk.form.timers.CrashWatch[kMapKind].Enabled());
    desk.crashes.Check(kMapKind);
  }
  EXPECT_EQ(desk.NewLines(),
            "Map Server crashed, restarting...\n"
            "Map Server crashed, restarting...\n"
            "Map Server crashed, restarting...\n"
            "Map Server Started [V-Low Priority]\n");
  EXPECT_EQ(asked, 3);
}

TEST(TakingOver, FindsTheComponentStopped) {
  CrashDesk desk;
  ProcessId id = 1;
  desk.crashes.upgradeTakesOver = [&](ComponentKind kind) {
    id = desk.components[kind].ProcessId;
    return true;
  };
  desk.Crash(kCharKind);
  desk.crashes.Check(kCharKind);
  EXPECT_EQ(id, 0u);
}

TEST(TakingOver, RefusedForTheMapServerRestartsTheOthersFirst) {
  CrashDesk desk;
  desk.form.servers.chkAK[3].SetChecked(true);
  desk.crashes.upgradeTakesOver = [](ComponentKind) { return false; };
  desk.Crash(kMapKind);
  desk.NewLines();
  desk.crashes.Check(kMapKind);
  EXPECT_EQ(desk.NewLines(),
            "Map Server crashed, restarting...\n"
            "Map Server Autokill: Closing Components...\n"
            "Char Server Stopped!\nChar Server Started [V-Low Priority]\n"
            "Login Server Stopped!\nLogin Server Started! [V-Low Priority]\n"
            "Map Server Started [V-Low Priority]\n");
}

}  // namespace
}  // namespace tarvo
