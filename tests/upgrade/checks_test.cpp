#include <functional>

#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

/// The checks before an upgrade: each refusal leaves every file, every server and every value as it
/// was.
class UpgradeChecks : public UpgradeStory {
 protected:
  void ExpectNothingTouched() {
    EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 0u);
    EXPECT_EQ(machine.recorder.CountOf("copies.makeFolder"), 0u);
    EXPECT_EQ(machine.recorder.CountOf("processes.end"), 0u);
    EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
    EXPECT_EQ(Page().oPath[3].Caption(), "n/a");
  }

  /// Presses the button and compares the log, the box and its icon.
  void ExpectRefusal(const std::string& lines, const std::string& box, BoxIcon icon) {
    PressUpgrade();
    EXPECT_EQ(NewLines(), lines);
    EXPECT_EQ(machine.boxes.NewTexts(), box + "\n");
    EXPECT_EQ(machine.boxes.Shown().back().icon, icon);
    ExpectNothingTouched();
  }
};

TEST_F(UpgradeChecks, AnyEmptyBoxIsRefused) {
  for (ComponentKind kind : kComponents) {
    StartReady();
    TypePath(kind, "");
    ExpectRefusal("2 Update Error: Please, select the right new components (login, char, map)\n",
                  "Please, select the right new components (login, char, map)",
                  BoxIcon::Information);
  }
}

TEST_F(UpgradeChecks, ABoxOfBlanksNamesAFileThatIsMissing) {
  StartReady();
  TypePath(ComponentKind::Char, "  ");
  ExpectRefusal("2 Update Error: File missing:   \n", "File missing:   ", BoxIcon::Critical);
}

TEST_F(UpgradeChecks, TwoBoxesWithTheSameTextAreRefused) {
  const std::size_t pairs[][2] = {{0, 1}, {0, 2}, {1, 2}};
  for (const auto& pair : pairs) {
    StartReady();
    Do([&] { Page().nPath[pair[1]].Type(Page().nPath[pair[0]].Text()); });
    ExpectRefusal("2 Update Error: Please select the right components.\n",
                  "Error, please select the right components.", BoxIcon::Critical);
  }
}

TEST_F(UpgradeChecks, AMissingFileIsNamed) {
  for (ComponentKind kind : kComponents) {
    StartReady();
    const std::string path = "C:\\nowhere\\" + std::to_string(IndexOf(kind)) + ".exe";
    TypePath(kind, path);
    ExpectRefusal("2 Update Error: File missing: " + path + "\n", "File missing: " + path,
                  BoxIcon::Critical);
    EXPECT_EQ(launcher->TheForm().upgrade.nPath[kind].Text(), path);
  }
}

TEST_F(UpgradeChecks, AFolderIsNoFile) {
  StartReady();
  TypePath(ComponentKind::Char, "C:\\new");
  ExpectRefusal("2 Update Error: File missing: C:\\new\n", "File missing: C:\\new",
                BoxIcon::Critical);
}

TEST_F(UpgradeChecks, TheOperatorsUpgradeWaitsHalfAMinuteForAShare) {
  StartReady();
  machine.inspection.Silence("C:\\new\\map");
  ExpectRefusal("2 Update Error: File missing: C:\\new\\map-server.exe\n",
                "File missing: C:\\new\\map-server.exe", BoxIcon::Critical);
  EXPECT_EQ(machine.inspection.Waited(), 30000u);
}

TEST_F(UpgradeChecks, OfSeveralReasonsTheFirstIsTold) {
  StartReady();
  TypePath(ComponentKind::Login, "C:\\same.exe");
  TypePath(ComponentKind::Char, "C:\\same.exe");
  TypePath(ComponentKind::Map, "");
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "2 Update Error: Please, select the right new components (login, char, map)\n");
  TypePath(ComponentKind::Map, "C:\\gone.exe");
  PressUpgrade();
  EXPECT_EQ(NewLines(), "2 Update Error: Please select the right components.\n");
  TypePath(ComponentKind::Login, "C:\\gone too.exe");
  PressUpgrade();
  EXPECT_EQ(NewLines(), "2 Update Error: File missing: C:\\gone too.exe\n");
  TypePath(ComponentKind::Login, kNewLogin);
  PressUpgrade();
  EXPECT_EQ(NewLines(), "2 Update Error: File missing: C:\\same.exe\n");
  ExpectNothingTouched();
}

TEST_F(UpgradeChecks, TheSameFileInOtherLetterCasePasses) {
  machine.copies.PutFolder("C:\\srv\\LBackup");
  StartReady();
  TypePath(ComponentKind::Char, "c:\\NEW\\Login-Server.exe");
  PressUpgrade();
  EXPECT_EQ(NewLines(), "1 Upgrade in progress...\n" + QuietUpgradeLines());
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Char)), "new Login");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Login)), "new Login");
}

TEST_F(UpgradeChecks, NothingNewIsToldInTheBoxAlone) {
  StartReady();
  PressUpgrade();
  NewLines();
  machine.boxes.NewTexts();
  StartRunning();
  machine.recorder.Forget();
  const std::string before = Lying();
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(NewLines(), "");
  EXPECT_EQ(machine.boxes.NewTexts(),
            "\xBFStop all to Upgrade?\r\nThe server components are running.\n"
            "FROM and TO components are the same version, upgrade stopped!\n");
  EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Information);
  EXPECT_EQ(machine.recorder.CountOf("processes.end"), 0u);
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 0u);
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
  EXPECT_EQ(Lying(), before);
}

TEST_F(UpgradeChecks, OnlyFullUpgradesRefusesWhenOneIsNotNew) {
  for (ComponentKind kind : kComponents) {
    StartReady();
    ClickOption(1, false);
    PressUpgrade();
    for (ComponentKind other : kComponents) {
      if (other != kind) BuildAgain(other);
    }
    ClickOption(1, true);
    machine.boxes.NewTexts();
    NewLines();
    const std::string before = Lying();
    const std::string dates = Dates();
    PressUpgrade();
    EXPECT_EQ(NewLines(),
              "1 Upgrade in progress...\n"
              "2 Error, some server component have not changes! - Upgrade stopped\n");
    EXPECT_EQ(machine.boxes.NewTexts(), "Some components don't have changes, upgrade stopped!\n");
    EXPECT_EQ(Lying(), before);
    EXPECT_EQ(Dates(), dates);
  }
}

TEST_F(UpgradeChecks, OnlyFullUpgradesLetsThreeNewOnesThrough) {
  machine.copies.PutFolder("C:\\srv\\LBackup");
  StartReady();
  ClickOption(1, true);
  PressUpgrade();
  EXPECT_EQ(NewLines(), "1 Upgrade in progress...\n" + QuietUpgradeLines());
}

TEST_F(UpgradeChecks, ADateThatWentBackIsNewToo) {
  StartReady();
  PressUpgrade();
  machine.copies.SetDate(kNewMap, 1000);
  NewLines();
  PressUpgrade();
  EXPECT_EQ(NewLines(),
            "1 Upgrade in progress...\n"
            "1 Warning, some server component have not changes!\n" +
                QuietUpgradeLines());
  EXPECT_EQ(machine.Setting("MDATE"), "1970-01-01 00:16:40");
}

TEST_F(UpgradeChecks, ASourceGoneBetweenCheckAndDateIsAFaultThatTouchesNothing) {
  StartReady();
  machine.recorder.beforeEach = [this] {
    if (machine.recorder.Calls().back() == std::string("copies.date(") + kNewChar + ")") {
      machine.files.Remove(kNewChar);
    }
  };
  const std::string before = Lying();
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '53':\r\n\r\nFile not found\r\n\r\nReading the date of "
            "C:\\new\\char-server.exe: File not found (system error 2)\n");
  EXPECT_EQ(launcher->ExitCode(), kExitFault);
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(Lying(), before);
}

}  // namespace
}  // namespace tarvo
