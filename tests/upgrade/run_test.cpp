#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

/// Upgrades that are begun by hand and go through.
class UpgradeByHand : public UpgradeStory {};

constexpr char kAllUpgraded[] =
    "login-server.exe = new Login\n"
    "char-server.exe = new Char\n"
    "map-server.exe = new Map\n"
    "LBackup\\202611211000_login-server.exe = old Login\n"
    "LBackup\\202611211000_char-server.exe = old Char\n"
    "LBackup\\202611211000_map-server.exe = old Map\n";

TEST_F(UpgradeByHand, WithEverythingStoppedReplacesAllAndStartsNothing) {
  StartReady();
  PressUpgrade();
  EXPECT_EQ(launcher->NewLog(),
            "10:00:00 1 Upgrade in progress...\n"
            "10:00:00 3 Creating LBackup folder (first time)\n"
            "10:00:00 3 Saving login-server.exe as \\LBackup\\202611211000_login-server.exe\n"
            "10:00:00 3 Saving char-server.exe as \\LBackup\\202611211000_char-server.exe\n"
            "10:00:00 3 Saving map-server.exe as \\LBackup\\202611211000_map-server.exe\n"
            "10:00:00 3 Upgrading Login Server...\n"
            "10:00:00 3 Upgrading Char Server...\n"
            "10:00:00 3 Upgrading Map Server...\n"
            "10:00:00 3 Upgrade complete!\n");
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Information);
  EXPECT_EQ(Lying(), kAllUpgraded);
  EXPECT_EQ(Dates(),
            "2026-01-01 00:00:00|2026-01-02 00:00:00|2026-01-03 00:00:00|2026-11-21 10:00:00");
  EXPECT_EQ(Page().oPath[3].Caption(), "2026-11-21 10:00:00");
  EXPECT_EQ(machine.processes.Launches(), 0u);
}

TEST_F(UpgradeByHand, WithSlowCopiesHasOneStampForAllBackupsAndEndsAtItsEnd) {
  StartReady();
  machine.files.SetAttemptTime(40000);
  PressUpgrade();
  EXPECT_EQ(Lying(), kAllUpgraded);
  EXPECT_EQ(machine.Setting("LASTUPDATE"), "2026-11-21 10:04:00");
}

TEST_F(UpgradeByHand, WithEverythingRunningStopsCopiesAndStartsInOrder) {
  StartRunning();
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "1 Upgrade in progress...\n"
            "0 Stopping Login Server...\n"
            "1 Login Server Stopped!\n"
            "0 Stopping Char Server...\n"
            "1 Char Server Stopped!\n"
            "0 Stopping Map Server...\n"
            "1 Map Server Stopped!\n"
            "3 Creating LBackup folder (first time)\n" +
                QuietUpgradeLines() +
                "1 Starting Login Server...\n"
                "0 Login Server Started! [Low Priority]\n"
                "1 Starting Char Server...\n"
                "0 Char Server Started [Norm Priority]\n"
                "1 Starting Map Server...\n"
                "0 Map Server Started [High Priority]\n");
  EXPECT_EQ(machine.boxes.NewTexts(),
            "\xBFStop all to Upgrade?\r\nThe server components are running.\n"
            "Upgrade was succesfull!\n");
  EXPECT_EQ(Lying(), kAllUpgraded);
  for (const char* server : kServers) EXPECT_EQ(Process(server).executable, server);
  launcher->Pass(60s);
  EXPECT_EQ(NewLines(),
            "0 Listening Login Server\n0 Listening Char Server\n0 Listening Map Server\n");
}

TEST_F(UpgradeByHand, TheMapServerOfAnUpgradePassesTheRandomizersGate) {
  constexpr char kConf[] = "C:\\srv\\conf\\battle_athena.conf";
  machine.files.Put("C:\\srv\\randomize.xml",
                    "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n</Randomize>\r\n");
  machine.SetSetting("AutoRandomize", "0");
  for (const char* limit : {"MaxRndDay", "MaxRndHour"}) machine.SetSetting(limit, "9");
  StartRunning();
  machine.random.Script({0.0, 0.5});
  machine.files.Put(kConf, "base_exp_rate: 100\r\n");
  machine.boxes.AnswerNext(Answer::Yes);
  std::string confAtLaunch;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().ends_with("launch(C:\\srv\\map-server.exe)")) return;
    confAtLaunch = machine.files.TextOf(kConf);
  };
  PressUpgrade();
  machine.recorder.beforeEach = nullptr;
  EXPECT_TRUE(
      NewLines().ends_with("1 Starting Map Server...\n"
                           "3 Starting Randomizer - Updating battle_athena.conf\n"
                           "3 > base_exp_rate (5~9): 5\n"
                           "3 Randomize was succesfull, 1 change(s)\n"
                           "0 Map Server Started [High Priority]\n"));
  EXPECT_EQ(confAtLaunch, "base_exp_rate: 5\r\n");
}

TEST_F(UpgradeByHand, NoToTheQuestionChangesNothing) {
  StartRunning();
  machine.recorder.Forget();
  machine.boxes.AnswerNext(Answer::No);
  PressUpgrade();
  EXPECT_EQ(NewLines(), "");
  EXPECT_EQ(machine.boxes.Shown().size(), 1u);
  EXPECT_EQ(machine.recorder.Calls().size(), 1u);  // The question alone.
}

TEST_F(UpgradeByHand, StartsOnlyWhatRan) {
  StartReady();
  launcher->Click("bStart", 1);
  NewLines();
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "1 Upgrade in progress...\n"
            "0 Stopping Char Server...\n"
            "1 Char Server Stopped!\n"
            "3 Creating LBackup folder (first time)\n" +
                QuietUpgradeLines() +
                "1 Starting Char Server...\n"
                "0 Char Server Started [Norm Priority]\n");
  EXPECT_TRUE(machine.processes.Named(kLogin).empty());
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
  EXPECT_EQ(machine.boxes.NewTexts(),
            "\xBFStop all to Upgrade?\r\nThe server components are running.\n"
            "Upgrade was succesfull!\n");
}

TEST_F(UpgradeByHand, EachCopyIsToldBeforeItBegins) {
  StartReady();
  std::string told;
  machine.recorder.beforeEach = [&] {
    if (machine.recorder.Calls().back().starts_with("copies.copy(")) {
      const std::string log = launcher->Log();
      told += log.substr(log.rfind('\n', log.size() - 2) + 1 + sizeof "10:00:00 3");
    }
  };
  PressUpgrade();
  EXPECT_EQ(told + "Upgrade complete!\n",
            "Saving login-server.exe as \\LBackup\\202611211000_login-server.exe\n"
            "Saving char-server.exe as \\LBackup\\202611211000_char-server.exe\n"
            "Saving map-server.exe as \\LBackup\\202611211000_map-server.exe\n"
            "Upgrading Login Server...\n"
            "Upgrading Char Server...\n"
            "Upgrading Map Server...\n"
            "Upgrade complete!\n");
}

TEST_F(UpgradeByHand, WhatFollowsTheCopiesHasItsOrder) {
  StartRunning();
  ClickOption(2, true);
  machine.boxes.AnswerNext(Answer::Yes);
  machine.recorder.Forget();
  std::string steps;
  machine.recorder.beforeEach = [&] {
    const std::string& call = machine.recorder.Calls().back();
    if (call.starts_with("registry.write(") || call.starts_with("processes.launch(")) {
      steps += std::to_string(launcher->CountInLog("Upgrade complete!")) + " " + call + "\n";
    }
  };
  PressUpgrade();
  EXPECT_EQ(steps,
            "0 registry.write(LDATE)\n"
            "0 registry.write(CDATE)\n"
            "0 registry.write(MDATE)\n"
            "1 registry.write(LASTUPDATE)\n"
            "1 processes.launch(C:\\srv\\login-server.exe)\n"
            "1 processes.launch(C:\\srv\\char-server.exe)\n"
            "1 processes.launch(C:\\srv\\map-server.exe)\n"
            "1 registry.write(UpdateMode)\n");
}

TEST_F(UpgradeByHand, TheDatesAreThoseOfTheCheckEvenWhenABuildEndsMeanwhile) {
  StartReady();
  bool built = false;
  machine.recorder.beforeEach = [&] {
    if (built || !machine.recorder.Calls().back().starts_with("copies.copy(C:\\new\\map")) return;
    built = true;
    BuildAgain(ComponentKind::Map);
  };
  PressUpgrade();
  EXPECT_EQ(machine.Setting("MDATE"), "2026-01-03 00:00:00");
  NewLines();
  PressUpgrade();
  EXPECT_EQ(machine.Setting("MDATE"), "2026-01-13 00:00:00");
}

TEST_F(UpgradeByHand, OnlyTheMapServerIsNewButAllAreReplaced) {
  StartReady();
  PressUpgrade();
  machine.clock.Advance(24 * 3600 * 1000);
  BuildAgain(ComponentKind::Map);
  // Rebuilt with other bytes but the same date: it is copied all the same.
  machine.files.Put(kNewLogin, "patched Login");
  NewLines();
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "1 Upgrade in progress...\n"
            "1 Warning, some server component have not changes!\n" +
                QuietUpgradeLines("202611221000"));
  EXPECT_EQ(Lying(),
            "login-server.exe = patched Login\n"
            "char-server.exe = new Char\n"
            "map-server.exe = new Map+\n"
            "LBackup\\202611211000_login-server.exe = old Login\n"
            "LBackup\\202611211000_char-server.exe = old Char\n"
            "LBackup\\202611211000_map-server.exe = old Map\n"
            "LBackup\\202611221000_login-server.exe = new Login\n"
            "LBackup\\202611221000_char-server.exe = new Char\n"
            "LBackup\\202611221000_map-server.exe = new Map\n");
  EXPECT_EQ(Dates(),
            "2026-01-01 00:00:00|2026-01-02 00:00:00|2026-01-13 00:00:00|2026-11-22 10:00:00");
}

TEST_F(UpgradeByHand, WithoutBackupNothingIsSaved) {
  StartReady();
  ClickOption(0, false);
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "1 Upgrade in progress...\n"
            "3 Upgrading Login Server...\n"
            "3 Upgrading Char Server...\n"
            "3 Upgrading Map Server...\n"
            "3 Upgrade complete!\n");
  EXPECT_EQ(machine.recorder.CountOf("copies.makeFolder"), 0u);
  EXPECT_EQ(Lying(),
            "login-server.exe = new Login\nchar-server.exe = new Char\nmap-server.exe = new Map\n");
}

TEST_F(UpgradeByHand, WithoutBackupAMissingOldExecutableIsCreated) {
  StartReady();
  ClickOption(0, false);
  machine.files.Remove(Target(ComponentKind::Char));
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Char)), "new Char");
}

TEST_F(UpgradeByHand, CopiesKeepTheirLastModifiedDates) {
  StartReady();
  const std::int64_t oldDate = machine.copies.DateOf(Target(ComponentKind::Map));
  PressUpgrade();
  EXPECT_EQ(machine.copies.DateOf(Target(ComponentKind::Map)), machine.copies.DateOf(kNewMap));
  EXPECT_EQ(machine.copies.DateOf("C:\\srv\\LBackup\\202611211000_map-server.exe"), oldDate);
}

TEST_F(UpgradeByHand, TwoWithinAMinuteShareTheBackupsName) {
  StartReady();
  PressUpgrade();
  machine.clock.Advance(59 * 1000);
  BuildAgain(ComponentKind::Login);
  NewLines();
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "1 Upgrade in progress...\n"
            "1 Warning, some server component have not changes!\n" +
                QuietUpgradeLines());
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\LBackup\\202611211000_login-server.exe"), "new Login");
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\LBackup\\202611211000_char-server.exe"), "new Char");
}

TEST_F(UpgradeByHand, TheStampIsLocalTimePaddedToTheMinute) {
  using namespace std::chrono;
  machine.clock.SetLocal(local_days(year(2027) / 2 / 3) + 4h + 5min + 59s);
  StartReady();
  PressUpgrade();
  EXPECT_TRUE(machine.files.Has("C:\\srv\\LBackup\\202702030405_map-server.exe"));
  EXPECT_EQ(machine.Setting("LASTUPDATE"), "2027-02-03 04:05:59");
}

TEST_F(UpgradeByHand, GoesBackToManualAfterwardsWhenTold) {
  SetTrigger(2);
  StartReady();
  PressUpgrade();
  EXPECT_TRUE(Page().optMode[2].Selected());
  EXPECT_EQ(machine.Setting("UpdateMode"), "2");
  BuildAgain(ComponentKind::Char);
  ClickOption(2, true);
  PressUpgrade();
  EXPECT_TRUE(Page().optMode[0].Selected());
  EXPECT_EQ(machine.Setting("UpdateMode"), "0");
}

TEST_F(UpgradeByHand, GoingBackToManualIsWrittenEvenWhenItIsManualAlready) {
  StartReady();
  ClickOption(2, true);
  ASSERT_TRUE(Page().optMode[0].Selected());
  ASSERT_EQ(machine.Setting("UpdateMode"), "(none)");
  PressUpgrade();
  EXPECT_TRUE(Page().optMode[0].Selected());
  EXPECT_EQ(machine.Setting("UpdateMode"), "0");
}

TEST_F(UpgradeByHand, ARefusedUpgradeLeavesTheTrigger) {
  SetTrigger(2);
  StartReady();
  ClickOption(2, true);
  TypePath(ComponentKind::Login, "");
  PressUpgrade();
  EXPECT_TRUE(Page().optMode[2].Selected());
  EXPECT_EQ(machine.Setting("UpdateMode"), "2");
}

TEST_F(UpgradeByHand, UsesATypedPathAndTheChosenTarget) {
  machine.files.Put("C:\\srv\\map-sql-server.exe", "sql Map");
  machine.files.Put("D:\\typed.exe", "typed Map");
  StartReady();
  launcher->Choose("Exes", 2, "map-sql-server.exe");
  TypePath(ComponentKind::Map, "D:\\typed.exe");
  PressUpgrade();
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\map-sql-server.exe"), "typed Map");
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\map-server.exe"), "old Map");
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\LBackup\\202611211000_map-sql-server.exe"), "sql Map");
}

TEST_F(UpgradeByHand, ACrashUnderTheQuestionIsRestartedAndThenStopped) {
  StartRunning();
  machine.boxes.whileNextIsOpen = [this] {
    Crash(kMap);
    launcher->Pass(6s);
  };
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_EQ(launcher->CountInLog("Stopping Map Server..."), 1u);
  EXPECT_EQ(launcher->CountInLog("Upgrade complete!"), 1u);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
}

TEST_F(UpgradeByHand, AnUpgradeOfACrashUnderTheQuestionLeavesNothingNewForTheHand) {
  SetTrigger(2);
  StartRunning();
  machine.boxes.whileNextIsOpen = [this] {
    Crash(kMap);
    launcher->Pass(6s);
  };
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(launcher->CountInLog("Upgrade complete!"), 1u);
  EXPECT_EQ(machine.boxes.Shown().back().text,
            "FROM and TO components are the same version, upgrade stopped!");
}

TEST_F(UpgradeByHand, AProgramThatEndedUnderTheQuestionUpgradesNothing) {
  StartRunning();
  machine.boxes.whileNextIsOpen = [this] { launcher->Window().End(kExitFault); };
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 0u);
  EXPECT_EQ(machine.boxes.Shown().size(), 1u);
}

TEST_F(UpgradeByHand, RefusedRegistryWritesGoUnnoticed) {
  StartReady();
  machine.registry.Deny(Hive::LocalMachine);
  machine.registry.Deny(Hive::CurrentUser);
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(Page().oPath[3].Caption(), "n/a");
}

}  // namespace
}  // namespace tarvo
