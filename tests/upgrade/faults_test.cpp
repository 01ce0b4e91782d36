#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

/// Copies that fail: the fault names the files and the reason, what was copied stays, no date is
/// remembered and nothing is started again.
class UpgradeFaults : public UpgradeStory {
 protected:
  void ExpectFault(int number, const std::string& description, const std::string& source) {
    EXPECT_EQ(machine.boxes.NewTexts(), "Run-time error '" + std::to_string(number) + "':\r\n\r\n" +
                                            description + "\r\n\r\n" + source + "\n");
    EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Critical);
    EXPECT_TRUE(launcher->Ended());
    EXPECT_EQ(launcher->ExitCode(), kExitFault);
    EXPECT_EQ(Dates(), "(none)|(none)|(none)|(none)");
  }
};

/// The six copies in their order: source and target.
struct Step {
  std::string source;
  std::string target;
};

Step StepOf(int n) {
  const char* server = kServers[(n - 1) % 3];
  const std::string old = std::string("C:\\srv\\") + server;
  if (n <= 3) return {old, SavedAtTen(server)};
  return {std::string("C:\\new\\") + server, old};
}

class EachOfTheSixCopies : public UpgradeFaults, public testing::WithParamInterface<int> {
 protected:
  /// What lies there when the copies before this one went through.
  std::string LyingBefore(int n) {
    std::string text;
    for (ComponentKind kind : kComponents) {
      const bool replaced = n > 4 + static_cast<int>(IndexOf(kind));
      text += std::string(kServers[IndexOf(kind)]) + " = " +
              (replaced ? std::string("new ") + NameOf(kind) : Old(kind)) + "\n";
    }
    for (ComponentKind kind : kComponents) {
      if (n <= 1 + static_cast<int>(IndexOf(kind))) continue;
      text += "LBackup\\202611211000_" + std::string(kServers[IndexOf(kind)]) + " = " + Old(kind) +
              "\n";
    }
    return text;
  }
};

INSTANTIATE_TEST_SUITE_P(Upgrade, EachOfTheSixCopies, testing::Range(1, 7));

TEST_P(EachOfTheSixCopies, MeetsAFullDisk) {
  const int n = GetParam();
  StartReady();
  machine.copies.FailCopy(n, FileTrouble::DiskFull, 112, "There is not enough space on the disk");
  PressUpgrade();
  const Step step = StepOf(n);
  ExpectFault(61, "Disk full",
              "Copying " + step.source + " to " + step.target +
                  ": There is not enough space on the disk (system error 112)");
  EXPECT_EQ(Lying(), LyingBefore(n));
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), static_cast<std::size_t>(n));
}

TEST_P(EachOfTheSixCopies, WaitsForATargetThatIsHeldForASecond) {
  StartReady();
  machine.files.Hold(StepOf(GetParam()).target, 1000);
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(Lying(), LyingBefore(7));
  EXPECT_EQ(machine.clock.Now().time_since_epoch().count() % 60, 1);
}

TEST_P(EachOfTheSixCopies, GivesAHeldTargetUpAfterFiveSeconds) {
  const int n = GetParam();
  StartReady();
  machine.files.Hold(StepOf(n).target, 1000000000);
  const std::uint64_t begun = machine.clock.Age();
  PressUpgrade();
  const Step step = StepOf(n);
  ExpectFault(
      70, "Permission denied",
      "Copying " + step.source + " to " + step.target + ": The file is in use (system error 32)");
  EXPECT_EQ(machine.clock.Age() - begun, Patience::kLongestHold);
  EXPECT_EQ(Lying(), LyingBefore(n));
}

TEST_P(EachOfTheSixCopies, MayTakeLongerThanThePatience) {
  StartReady();
  machine.files.SetAttemptTime(6000);
  machine.files.Hold(StepOf(GetParam()).target,
                     static_cast<std::uint64_t>(GetParam()) * 6000u + 1000u);
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 7u);
}

TEST_P(EachOfTheSixCopies, KeepsWhatTheTargetIsBesideItsContent) {
  StartReady();
  const std::string target = StepOf(GetParam()).target;
  if (!machine.files.Has(target)) machine.files.Put(target, "an earlier backup");
  machine.files.Mark(target, "hidden; the operators alone");
  PressUpgrade();
  const ComponentKind kind = kComponents[static_cast<std::size_t>((GetParam() - 1) % 3)];
  EXPECT_EQ(machine.files.TextOf(target),
            GetParam() <= 3 ? Old(kind) : std::string("new ") + NameOf(kind));
  EXPECT_EQ(machine.files.MarksOf(target), "hidden; the operators alone");
}

TEST_P(EachOfTheSixCopies, GoesWhereTheTargetsLinkLeads) {
  StartReady();
  const std::string target = StepOf(GetParam()).target;
  const std::string old = machine.files.TextOf(target);
  machine.files.Remove(target);
  machine.files.Put("D:\\builds\\real.exe", old);
  machine.files.Link(target, "D:\\builds\\real.exe");
  PressUpgrade();
  EXPECT_EQ(machine.boxes.NewTexts(), "Upgrade was succesfull!\n");
  EXPECT_TRUE(machine.files.IsLink(target));
  EXPECT_NE(machine.files.TextOf("D:\\builds\\real.exe"), old);
}

TEST_P(EachOfTheSixCopies, MissesASourceThatWentAfterTheCheck) {
  const int n = GetParam();
  StartReady();
  const Step step = StepOf(n);
  const std::string copying = "copies.copy(" + step.source + " to " + step.target + ")";
  machine.recorder.beforeEach = [&] {
    if (machine.recorder.Calls().back() == copying) machine.files.Remove(step.source);
  };
  PressUpgrade();
  machine.recorder.beforeEach = nullptr;
  ExpectFault(
      53, "File not found",
      "Copying " + step.source + " to " + step.target + ": File not found (system error 2)");
}

TEST_P(EachOfTheSixCopies, MayBeTheLastThatAKilledLauncherBegan) {
  const int n = GetParam();
  const Step step = StepOf(n);
  for (const std::string& moment : {"copies.copy(" + step.source, "copies.write(" + step.target,
                                    "copies.swap(" + step.target}) {
    for (ComponentKind kind : kComponents) machine.files.Put(Target(kind), Old(kind));
    StartReady();
    machine.recorder.beforeEach = [&] {
      if (machine.recorder.Calls().back().starts_with(moment)) throw LauncherKilled{};
    };
    EXPECT_THROW(PressUpgrade(), LauncherKilled) << moment;
    machine.recorder.beforeEach = nullptr;
    KillLauncher();
    for (ComponentKind kind : kComponents) {
      const bool replaced = n > 4 + static_cast<int>(IndexOf(kind));
      EXPECT_EQ(machine.files.TextOf(Target(kind)),
                replaced ? std::string("new ") + NameOf(kind) : Old(kind))
          << moment;
    }
    EXPECT_EQ(Dates(), "(none)|(none)|(none)|(none)");
  }
}

TEST_F(UpgradeFaults, ALauncherKilledAtAnyCallLeavesNoHalfExecutableAndCanUpgradeAgain) {
  machine.processes.Program(kLogin).dyingTime = 200;
  int kills = 0;
  for (std::size_t call = 1;; ++call) {
    for (ComponentKind kind : kComponents) {
      machine.files.Put(Target(kind), Old(kind));
      BuildAgain(kind);
      machine.files.Put(New(kind), std::string("new ") + NameOf(kind));
    }
    StartLauncher();
    launcher->Click("bStart", 3);
    machine.boxes.AnswerNext(Answer::Yes);
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
      const std::string lies = machine.files.TextOf(Target(kind));
      EXPECT_TRUE(lies == Old(kind) || lies == std::string("new ") + NameOf(kind))
          << "killed at call " << call << ": " << lies;
    }
    for (const std::string& name : machine.files.FilesEndingWith("C:\\srv\\LBackup", ".exe")) {
      const std::string lies = machine.files.TextOf("C:\\srv\\LBackup\\" + name);
      EXPECT_TRUE(lies.starts_with("old ") || lies.starts_with("new "))
          << "killed at call " << call << ": " << name << " = " << lies;
    }
    // The same upgrade once more, by a new launcher that takes what runs under control.
    StartLauncher();
    launcher->Click("bStart", 3);
    machine.boxes.AnswerNext(Answer::Yes);
    machine.boxes.NewTexts();
    PressUpgrade();
    EXPECT_FALSE(launcher->Ended()) << call;
    for (ComponentKind kind : kComponents) {
      EXPECT_EQ(machine.files.TextOf(Target(kind)), std::string("new ") + NameOf(kind)) << call;
    }
    for (const char* server : kServers) {
      EXPECT_EQ(machine.processes.Named(server).size(), 1u) << call << server;
    }
    launcher->Click("bStart", 4);
    machine.clock.Advance(60000);
  }
  EXPECT_GT(kills, 60);
}

TEST_F(UpgradeFaults, ABackupFolderThatIsAFileIsAFault) {
  machine.files.Put("C:\\srv\\LBackup", "not a folder");
  StartReady();
  PressUpgrade();
  ExpectFault(75, "Path/File access error",
              "Creating the folder C:\\srv\\LBackup: The file already exists (system error 183)");
  EXPECT_EQ(NewLines(), "1 Upgrade in progress...\n3 Creating LBackup folder (first time)\n");
  EXPECT_EQ(machine.recorder.CountOf("copies.copy"), 0u);
}

TEST_F(UpgradeFaults, NoRightToMakeTheBackupFolderIsAFault) {
  machine.copies.DenyWriting("C:\\srv");
  StartReady();
  PressUpgrade();
  ExpectFault(75, "Path/File access error",
              "Creating the folder C:\\srv\\LBackup: Access is denied (system error 5)");
}

TEST_F(UpgradeFaults, NoRightToWriteIsToldAtOnce) {
  machine.copies.DenyWriting("C:\\srv");
  StartReady();
  ClickOption(0, false);
  const std::uint64_t begun = machine.clock.Age();
  PressUpgrade();
  ExpectFault(75, "Path/File access error",
              "Copying C:\\new\\login-server.exe to C:\\srv\\login-server.exe: Access is denied "
              "(system error 5)");
  EXPECT_EQ(machine.clock.Age(), begun);
}

TEST_F(UpgradeFaults, AMissingOldExecutableIsAFailedCopyOfTheBackup) {
  StartReady();
  machine.files.Remove(Target(ComponentKind::Char));
  PressUpgrade();
  ExpectFault(53, "File not found",
              "Copying C:\\srv\\char-server.exe to " + SavedAtTen(kChar) +
                  ": File not found (system error 2)");
  EXPECT_EQ(machine.files.TextOf(SavedAtTen(kLogin)), "old Login");
}

TEST_F(UpgradeFaults, AnEmptyChooserIsAFailedCopyWithAndWithoutBackup) {
  for (bool backup : {true, false}) {
    machine.SetSetting("MapExe", "no such thing");
    StartReady();
    ClickOption(0, backup);
    PressUpgrade();
    const std::string source = backup ? "Copying C:\\srv\\ to C:\\srv\\LBackup\\202611211000_"
                                      : "Copying C:\\new\\map-server.exe to C:\\srv\\";
    ExpectFault(75, "Path/File access error", source + ": Access is denied (system error 5)");
  }
}

TEST_F(UpgradeFaults, AServerInMemoryWithoutAKnownIdIsNotStoppedAndItsFileIsInUse) {
  StartReady();
  const ProcessId foreign = machine.processes.StartForeign(kChar);
  PressUpgrade();
  ExpectFault(70, "Permission denied",
              "Copying C:\\new\\char-server.exe to C:\\srv\\char-server.exe: The file is in use "
              "(system error 32)");
  EXPECT_EQ(machine.processes.TheOne(kChar).id, foreign);
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Login)), "new Login");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Char)), "old Char");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "old Map");
}

TEST_F(UpgradeFaults, AServerThatWillNotDieMakesItsCopyFail) {
  machine.processes.Program(kMap).refusesToDie = true;
  StartRunning();
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  EXPECT_EQ(launcher->CountInLog("[map-server.exe] refuses to end, still in memory!"), 1u);
  EXPECT_EQ(machine.boxes.Shown().back().text,
            "Run-time error '70':\r\n\r\nPermission denied\r\n\r\n"
            "Copying C:\\new\\map-server.exe to C:\\srv\\map-server.exe: The file is in use "
            "(system error 32)");
}

TEST_F(UpgradeFaults, AFileStillHeldAfterItsProcessDiedIsTriedAgain) {
  machine.processes.Program(kMap).dyingTime = 300;
  StartRunning();
  machine.recorder.beforeEach = [this] {
    if (machine.recorder.Calls().back() == "boxes.ask(Upgrade was succesfull!)") return;
    if (machine.recorder.Calls().back().starts_with("copies.folderExists")) {
      machine.files.Hold(Target(ComponentKind::Map), 700);
    }
  };
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
  machine.recorder.beforeEach = nullptr;
  EXPECT_EQ(machine.boxes.Shown().back().text, "Upgrade was succesfull!");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Map)), "new Map");
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
}

TEST_F(UpgradeFaults, TheWaitEndsAcrossAWrapOfTheTickCount) {
  machine.clock.SetTicks(0xFFFFFFFFu - 2000u);
  StartReady();
  machine.files.Hold(Target(ComponentKind::Map), 1000000000);
  const std::uint64_t begun = machine.clock.Age();
  PressUpgrade();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(machine.clock.Age() - begun, Patience::kLongestHold);
}

TEST_F(UpgradeFaults, AFaultInACrashsUpgradeEndsTheProgramAndStartsNothing) {
  SetTrigger(2);
  StartRunning();
  machine.copies.FailCopy(5, FileTrouble::DiskFull, 112, "There is not enough space on the disk");
  Crash(kMap);
  launcher->Pass(60s);
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->CountInLog("Upgrading Char Server..."), 1u);
  EXPECT_EQ(launcher->CountInLog("Upgrading Map Server..."), 0u);
  for (const char* server : kServers) {
    EXPECT_TRUE(machine.processes.Named(server).empty()) << server;
  }
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Login)), "new Login");
  EXPECT_EQ(machine.files.TextOf(Target(ComponentKind::Char)), "old Char");
  EXPECT_EQ(machine.boxes.Shown().size(), 1u);
}

TEST_F(UpgradeFaults, AnExecutableThatIsGoneAtTheRestartIsTheUsualFault) {
  StartRunning();
  machine.boxes.AnswerNext(Answer::Yes);
  machine.processes.LoseExecutables();
  PressUpgrade();
  EXPECT_EQ(machine.boxes.Shown().back().text,
            "Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\srv\\login-server.exe");
  EXPECT_EQ(Dates(),
            "2026-01-01 00:00:00|2026-01-02 00:00:00|2026-01-03 00:00:00|2026-11-21 10:00:11");
}

}  // namespace
}  // namespace tarvo
