#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

/// Upgrades that a crash begins.
class UpgradeOnCrash : public UpgradeStory {
 protected:
  void Start(int trigger) {
    SetTrigger(trigger);
    StartRunning();
    machine.recorder.Forget();
  }
  std::size_t Upgrades() { return launcher->CountInLog("Upgrade complete!"); }
  void ExpectAllRunOnce() {
    for (const char* server : kServers) {
      EXPECT_EQ(machine.processes.Named(server).size(), 1u) << server;
    }
  }
};

TEST_F(UpgradeOnCrash, EachTriggerHoldsForItsComponents) {
  const struct {
    int trigger;
    const char* server;
    std::size_t upgrades;
  } table[] = {{0, kLogin, 0}, {0, kChar, 0},  {0, kMap, 0},  {1, kLogin, 0}, {1, kChar, 0},
               {1, kMap, 1},   {2, kLogin, 1}, {2, kChar, 1}, {2, kMap, 1}};
  for (const auto& entry : table) {
    for (ComponentKind kind : kComponents) BuildAgain(kind);
    StartLauncher();
    launcher->Click("optMode", static_cast<std::size_t>(entry.trigger));
    launcher->Click("bStart", 3);
    launcher->Pass(11s);
    launcher->ForgetLog();
    Crash(entry.server);
    launcher->Pass(6s);
    EXPECT_EQ(Upgrades(), entry.upgrades) << entry.trigger << entry.server;
    ExpectAllRunOnce();
    launcher->Click("bStart", 4);
  }
}

TEST_F(UpgradeOnCrash, AMapCrashStopsTheOthersAndBringsAllBackOnTheNewBuild) {
  Start(1);
  Crash(kMap);
  launcher->Pass(5s);
  EXPECT_EQ(NewLines(),
            "2 Map Server crashed, restarting...\n"
            "1 Upgrade in progress...\n"
            "0 Stopping Login Server...\n"
            "1 Login Server Stopped!\n"
            "0 Stopping Char Server...\n"
            "1 Char Server Stopped!\n"
            "3 Creating LBackup folder (first time)\n" +
                QuietUpgradeLines() +
                "1 Starting Login Server...\n"
                "0 Login Server Started! [Low Priority]\n"
                "1 Starting Char Server...\n"
                "0 Char Server Started [Norm Priority]\n"
                "1 Starting Map Server...\n"
                "0 Map Server Started [High Priority]\n");
  ExpectAllRunOnce();
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "new Map");
  launcher->Pass(60s);
  EXPECT_EQ(launcher->CountInLog("Map Server Started [High Priority]"), 0u);
}

TEST_F(UpgradeOnCrash, AShareThatWentAwayDelaysTheRestartByTwoSecondsAtMost) {
  Start(2);
  machine.inspection.Silence("C:\\new");
  Crash(kChar);
  launcher->Pass(5s);
  EXPECT_EQ(NewLines(),
            "2 Char Server crashed, restarting...\n"
            "2 Update Error: File missing: C:\\new\\login-server.exe\n"
            "0 Char Server Started [Norm Priority]\n");
  EXPECT_EQ(machine.inspection.Waited(), 2000u);
  ExpectAllRunOnce();
  machine.inspection.Silence("C:\\new", false);
  Crash(kChar);
  launcher->Pass(5s);
  EXPECT_EQ(Upgrades(), 1u);
}

TEST_F(UpgradeOnCrash, ASuccessfulUpgradeLeavesTheRestartOfTheOthersOut) {
  Start(1);
  launcher->Check("chkAK", 3);
  Crash(kMap);
  launcher->Pass(6s);
  EXPECT_EQ(Upgrades(), 1u);
  EXPECT_EQ(launcher->CountInLog("Map Server Autokill: Closing Components..."), 0u);
}

TEST_F(UpgradeOnCrash, ARefusedUpgradeLeavesTheRestartToTheCrashWatch) {
  Start(1);
  launcher->Check("chkAK", 3);
  TypePath(ComponentKind::Login, "");
  Crash(kMap);
  launcher->Pass(5s);
  EXPECT_EQ(NewLines(),
            "2 Map Server crashed, restarting...\n"
            "2 Update Error: Please, select the right new components (login, char, map)\n"
            "1 Map Server Autokill: Closing Components...\n"
            "1 Char Server Stopped!\n"
            "0 Char Server Started [Norm Priority]\n"
            "1 Login Server Stopped!\n"
            "0 Login Server Started! [Low Priority]\n"
            "0 Map Server Started [High Priority]\n");
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(UpgradeOnCrash, WithoutBackupNothingIsSaved) {
  Start(2);
  ClickOption(0, false);
  Crash(kMap);
  launcher->Pass(5s);
  EXPECT_EQ(Upgrades(), 1u);
  EXPECT_EQ(Lying(),
            "login-server.exe = new Login\nchar-server.exe = new Char\nmap-server.exe = new Map\n");
}

TEST_F(UpgradeOnCrash, WithNothingNewTheCrashedOneIsJustRestarted) {
  Start(2);
  Crash(kChar);
  launcher->Pass(6s);
  ASSERT_EQ(Upgrades(), 1u);
  launcher->Pass(60s);
  NewLines();
  Crash(kChar);
  launcher->Pass(5s);
  EXPECT_EQ(NewLines(),
            "2 Char Server crashed, restarting...\n0 Char Server Started [Norm Priority]\n");
  ExpectAllRunOnce();
}

TEST_F(UpgradeOnCrash, OnlyFullUpgradesLeavesTheRestartToTheCrashWatch) {
  Start(2);
  ClickOption(1, true);
  Crash(kLogin);
  launcher->Pass(6s);
  ASSERT_EQ(Upgrades(), 1u);
  BuildAgain(ComponentKind::Map);
  launcher->Pass(60s);
  NewLines();
  Crash(kLogin);
  launcher->Pass(5s);
  EXPECT_EQ(NewLines(),
            "2 Login Server crashed, restarting...\n"
            "1 Upgrade in progress...\n"
            "2 Error, some server component have not changes! - Upgrade stopped\n"
            "0 Login Server Started! [Low Priority]\n");
}

TEST_F(UpgradeOnCrash, OnlyTheCrashedOneIsStartedWhenNothingElseRan) {
  SetTrigger(2);
  StartReady();
  launcher->Click("bStart", 0);
  launcher->Pass(11s);
  NewLines();
  Crash(kLogin);
  launcher->Pass(5s);
  EXPECT_EQ(NewLines(),
            "2 Login Server crashed, restarting...\n"
            "1 Upgrade in progress...\n"
            "3 Creating LBackup folder (first time)\n" +
                QuietUpgradeLines() +
                "1 Starting Login Server...\n"
                "0 Login Server Started! [Low Priority]\n");
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
}

TEST_F(UpgradeOnCrash, ThreeCrashesInOneTickAreOneUpgradeAndNobodyIsLeftDown) {
  Start(2);
  for (const char* server : kServers) Crash(server);
  launcher->Pass(6s);
  EXPECT_EQ(Upgrades(), 1u);
  EXPECT_EQ(launcher->CountInLog("Upgrade in progress..."), 1u);
  ExpectAllRunOnce();
  launcher->Pass(300s);
  EXPECT_EQ(Upgrades(), 1u);
  ExpectAllRunOnce();
  for (ComponentKind kind : kComponents) EXPECT_NE(launcher->Of(kind).ProcessId, 0u);
}

TEST_F(UpgradeOnCrash, ThreeCrashesWithARefusedUpgradeAreThreeRestarts) {
  Start(2);
  machine.files.Remove(kNewMap);
  for (const char* server : kServers) Crash(server);
  launcher->Pass(6s);
  EXPECT_EQ(launcher->CountInLog(std::string("Update Error: File missing: ") + kNewMap), 3u);
  EXPECT_EQ(Upgrades(), 0u);
  ExpectAllRunOnce();
}

TEST_F(UpgradeOnCrash, ACrashOfAnotherWhileServersAreStoppedIsNoSecondUpgrade) {
  machine.processes.Program(kLogin).dyingTime = 900;
  Start(2);
  const ProcessId login = Process(kLogin).id;
  const std::string stopping = "processes.end(" + std::to_string(login) + ")";
  bool struck = false;
  machine.recorder.beforeEach = [&] {
    if (struck || machine.recorder.Calls().back() != stopping) return;
    struck = true;
    Crash(kChar);
  };
  Crash(kMap);
  launcher->Pass(6s);
  machine.recorder.beforeEach = nullptr;
  EXPECT_TRUE(struck);
  EXPECT_EQ(launcher->CountInLog("Char Server crashed, restarting..."), 0u);
  EXPECT_EQ(launcher->CountInLog("Starting Char Server..."), 1u);
  EXPECT_EQ(Upgrades(), 1u);
  launcher->Pass(120s);
  EXPECT_EQ(Upgrades(), 1u);
  ExpectAllRunOnce();
}

TEST_F(UpgradeOnCrash, GoesBackToManualSoTheNextCrashIsAPlainRestart) {
  Start(2);
  ClickOption(2, true);
  Crash(kChar);
  launcher->Pass(6s);
  EXPECT_EQ(machine.Setting("UpdateMode"), "0");
  EXPECT_TRUE(Page().optMode[0].Selected());
  for (ComponentKind kind : kComponents) BuildAgain(kind);
  launcher->Pass(60s);
  Crash(kChar);
  launcher->Pass(6s);
  EXPECT_EQ(Upgrades(), 1u);
  ExpectAllRunOnce();
}

TEST_F(UpgradeOnCrash, ALauncherThatDiesWeeksLaterIsStillBackToManual) {
  Start(2);
  ClickOption(2, true);
  Crash(kChar);
  launcher->Pass(6s);
  launcher->Pass(120s);
  machine.selfRestart.Crash();
  KillLauncher();
  StartLauncher();
  EXPECT_TRUE(Page().optMode[0].Selected());
}

TEST_F(UpgradeOnCrash, AFrozenServerThatWasKilledIsACrashAndUpgrades) {
  SetTrigger(1);
  machine.SetSetting("MapAutoKillEnabled", "1");
  machine.SetSetting("MapTimeout", "5");
  StartRunning();
  Freeze(kMap);
  launcher->Pass(40s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_EQ(Upgrades(), 1u);
  ExpectAllRunOnce();
}

}  // namespace
}  // namespace tarvo
