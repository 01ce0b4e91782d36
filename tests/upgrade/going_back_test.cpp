#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

/// A new build that turns out bad, and the way back to the good one within the minute of its
/// upgrade: its backup is then both what is to be put in and what the bad build is to be saved as.
class GoingBackAtOnce : public UpgradeStory {
 protected:
  GoingBackAtOnce() {
    for (ComponentKind kind : kComponents) {
      machine.files.Put(Target(kind), Good(kind));
      machine.files.Put(New(kind), Bad(kind));
    }
  }

  static std::string Good(ComponentKind kind) { return std::string("good ") + NameOf(kind); }
  static std::string Bad(ComponentKind kind) { return std::string("bad ") + NameOf(kind); }

  /// Upgrades to the bad builds, and chooses the backups of the good ones.
  void UpgradeAndChooseTheBackups() {
    StartReady();
    PressUpgrade();
    for (ComponentKind kind : kComponents) TypePath(kind, SavedAtTen(kServers[IndexOf(kind)]));
    NewLines();
    machine.boxes.NewTexts();
  }
  bool LiesSomewhere(const std::string& text) {
    for (const char* folder : {"C:\\srv", "C:\\srv\\LBackup"}) {
      for (const std::string& name : machine.files.FilesEndingWith(folder, ".exe")) {
        if (machine.files.TextOf(std::string(folder) + "\\" + name) == text) return true;
      }
    }
    return false;
  }
};

constexpr char kGoneBack[] =
    "login-server.exe = good Login\n"
    "char-server.exe = good Char\n"
    "map-server.exe = good Map\n"
    "LBackup\\202611211000_login-server.exe = bad Login\n"
    "LBackup\\202611211000_char-server.exe = bad Char\n"
    "LBackup\\202611211000_map-server.exe = bad Map\n";

TEST_F(GoingBackAtOnce, PutsTheGoodBuildsInAndSavesTheBadOnes) {
  UpgradeAndChooseTheBackups();
  PressUpgrade();
  EXPECT_EQ(NewLines(), "1 Upgrade in progress...\n" + QuietUpgradeLines());
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(Lying(), kGoneBack);
}

TEST_F(GoingBackAtOnce, KnowsABackupByEveryName) {
  UpgradeAndChooseTheBackups();
  TypePath(ComponentKind::Login, "c:\\SRV\\lbackup\\202611211000_LOGIN-server.exe");
  machine.files.Link("E:\\good.exe", SavedAtTen(kMap));
  TypePath(ComponentKind::Map, "E:\\good.exe");
  PressUpgrade();
  EXPECT_EQ(Lying(), kGoneBack);
}

TEST_F(GoingBackAtOnce, KnowsTheBackupOfAnotherComponent) {
  UpgradeAndChooseTheBackups();
  TypePath(ComponentKind::Login, SavedAtTen(kMap));
  TypePath(ComponentKind::Map, SavedAtTen(kLogin));
  PressUpgrade();
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Login)), "good Map");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "good Login");
}

TEST_F(GoingBackAtOnce, PutsOneBackupInTwiceWhenItIsChosenTwice) {
  UpgradeAndChooseTheBackups();
  TypePath(ComponentKind::Login, "C:\\SRV\\LBackup\\202611211000_map-server.exe");
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Login)), "good Map");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "good Map");
}

TEST_F(GoingBackAtOnce, TakesNothingAsideWhenNothingWouldBeOverwritten) {
  UpgradeAndChooseTheBackups();
  machine.clock.Advance(60000);
  machine.recorder.Forget();
  PressUpgrade();
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 6u);
  EXPECT_EQ(machine.recorder.CountOf("copies.remove"), 0u);
  EXPECT_EQ(machine.files.TextOf(SavedAtTen(kMap)), "good Map");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "good Map");
}

TEST_F(GoingBackAtOnce, WithoutABackupNothingIsTakenAside) {
  UpgradeAndChooseTheBackups();
  ClickOption(0, false);
  machine.recorder.Forget();
  PressUpgrade();
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 3u);
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "good Map");
}

TEST_F(GoingBackAtOnce, LosesNoBuildWhenTheLauncherIsKilledAtAnyCall) {
  int kills = 0;
  for (std::size_t call = 1;; ++call) {
    for (const std::string& name : machine.files.FilesEndingWith("C:\\srv\\LBackup", "")) {
      machine.files.Remove("C:\\srv\\LBackup\\" + name);
    }
    for (ComponentKind kind : kComponents) {
      machine.files.Put(Target(kind), Good(kind));
      BuildAgain(kind);
      machine.files.Put(New(kind), Bad(kind));
    }
    UpgradeAndChooseTheBackups();
    machine.recorder.KillAtCall(call);
    bool killed = false;
    try {
      PressUpgrade();
    } catch (const LauncherKilled&) {
      killed = true;
    }
    machine.recorder.KillAtCall(0);
    KillLauncher();
    if (!killed) break;
    ++kills;
    for (ComponentKind kind : kComponents) {
      EXPECT_TRUE(LiesSomewhere(Good(kind))) << "killed at call " << call;
      EXPECT_TRUE(LiesSomewhere(Bad(kind))) << "killed at call " << call;
    }
  }
  EXPECT_GT(kills, 40);
}

TEST_F(GoingBackAtOnce, AFaultOnTheWayLeavesTheGoodBuildsAside) {
  UpgradeAndChooseTheBackups();
  // Behind three that are taken aside and three that are saved.
  machine.copies.FailCopy(7, FileTrouble::DiskFull, 112, "There is not enough space on the disk");
  PressUpgrade();
  EXPECT_TRUE(launcher->Ended());
  for (ComponentKind kind : kComponents) {
    EXPECT_TRUE(LiesSomewhere(Good(kind)));
    EXPECT_TRUE(LiesSomewhere(Bad(kind)));
  }
  EXPECT_NE(machine.boxes.NewTexts().find(
                "Copying C:\\srv\\LBackup\\new_202611211000_login-server.exe to "
                "C:\\srv\\login-server.exe"),
            std::string::npos);
}

TEST_F(UpgradeStory, ANewFileThatIsItsOwnTargetStaysAsItIs) {
  machine.files.Mark(Target(ComponentKind::Map), "hidden");
  StartReady();
  TypePath(ComponentKind::Map, "c:\\SRV\\map-server.exe");
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "old Map");
  EXPECT_EQ(machine.files.MarksOf(Target(ComponentKind::Map)), "hidden");
  EXPECT_EQ(machine.files.TextOf(SavedAtTen(kMap)), "old Map");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Login)), "new Login");
}

}  // namespace
}  // namespace tarvo
