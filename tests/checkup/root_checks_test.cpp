#include "tests/checkup/check_up_desk.h"

namespace tarvo {
namespace {

/// The folder, the randomizer's sets and the upgrade.
class RootChecks : public CheckUpDesk {
 protected:
  void PutRanges(const std::string& ranges) {
    Put("randomize.xml",
        "<?xml version=\"1.0\"?>\r\n<Randomize>\r\n" + ranges + "</Randomize>\r\n");
  }
  void PutEntries(const std::string& entries) {
    Put("rndcalendar.xml",
        "<?xml version=\"1.0\"?>\r\n<Calendar>\r\n" + entries + "</Calendar>\r\n");
  }
  /// New executables for all three, newer than what is in the root.
  void PutNewFiles() {
    for (const char* name : {"Login", "Char", "Map"}) {
      const std::string path = std::string("D:\\new\\") + name + ".exe";
      machine.files.Put(path, ProgramBytes());
      machine.copies.SetDate(path, 100);
      machine.SetSetting(std::string(name) + "From", path);
    }
  }
};

TEST_F(RootChecks, WhatMayNotBeWritten) {
  machine.SetSetting("WriteLog", "1");
  machine.copies.DenyWriting("C:\\srv");
  Put("20261121.log", "x");
  machine.files.ProtectFromWriting("C:\\srv\\20261121.log");
  Put("LBackup\\x", "x");
  machine.files.ProtectFromWriting("C:\\srv\\conf\\battle_athena.conf");
  EXPECT_EQ(Told(),
            "warning folder [C:\\srv] This user has no right to write it.\n"
            "warning folder [C:\\srv\\20261121.log] This user has no right to write it.\n"
            "warning folder [C:\\srv\\LBackup] This user has no right to write it.\n"
            "warning folder [C:\\srv\\conf\\battle_athena.conf] This user has no right to write "
            "it.\n");
}

TEST_F(RootChecks, AFileThatIsHeldOnlyNowIsNoMatterOfRights) {
  machine.files.Hold("C:\\srv\\conf\\battle_athena.conf", SimFiles::kForGood);
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, ALogFileThatIsNotWrittenNeedsNoRights) {
  Put("20261121.log", "x");
  machine.files.ProtectFromWriting("C:\\srv\\20261121.log");
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, RoomForLessThanThreeTimesTheExecutables) {
  const std::uint64_t size = 3 * ProgramBytes().size();
  machine.inspection.SetFreeSpace(3 * size);
  EXPECT_EQ(Told(), "");
  machine.inspection.SetFreeSpace(3 * size - 1);
  EXPECT_EQ(Told(),
            "warning folder [Server root] The drive has only 4 KB left, less than three times the "
            "executables.\n");
}

TEST_F(RootChecks, ADriveThatDoesNotTellItsRoomIsNotJudged) {
  machine.inspection.SetFreeSpace(std::nullopt);
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, LettersOutsideTheCodePage) {
  machine.launcherPathInCodePage = false;
  EXPECT_EQ(Told(),
            "error folder [Server root] Its path has letters that the system's code page does not "
            "have, so nothing in it can be read.\n");
}

TEST_F(RootChecks, APathThatLeavesNoRoomForBackups) {
  // A backup's name: LBackup\, 12 digits, _map-server.exe, and .tarvo-copy while it is made.
  const std::size_t rest =
      std::string("\\LBackup\\yyyymmddhhnn_login-server.exe.tarvo-copy").size();
  const std::size_t letters = 259 - rest - 3;
  const struct {
    int codePage;
    std::string name;
    bool tooLong;
  } cases[] = {{1252, std::string(letters, 'a'), false},
               {1252, std::string(letters + 1, 'a'), true},
               // Two bytes a letter.
               {949, std::string(letters * 2, '\xB0'), false},
               {949, std::string((letters + 1) * 2, '\xB0'), true}};
  for (const auto& c : cases) {
    SimMachine other;
    other.codePage.Use(c.codePage);
    const std::string folder = "C:\\" + c.name;
    other.launcherPath = folder + "\\tarvo-launcher.exe";
    other.PutConf(folder, UsualCharConf(), UsualMapConf());
    for (const char* name : kServers) {
      other.files.Put(folder + "\\" + name, ProgramBytes());
    }
    other.SetSetting("MapAutoKillEnabled", "1");
    SimInstanceLock lock(other.recorder, other.locks);
    const std::string text = CheckFromOutside(other.PortsFor(lock)).text;
    EXPECT_EQ(text.find("no backup can be made") != std::string::npos, c.tooLong) << text;
  }
}

TEST_F(RootChecks, ABlankInThePathReachesTheServersAsAnArgument) {
  SimMachine other;
  const std::string folder = "C:\\my srv";
  other.launcherPath = folder + "\\tarvo-launcher.exe";
  other.PutConf(folder, UsualCharConf(), UsualMapConf());
  for (const char* name : kServers) other.files.Put(folder + "\\" + name, ProgramBytes());
  SimInstanceLock lock(other.recorder, other.locks);
  const std::string text = CheckFromOutside(other.PortsFor(lock)).text;
  EXPECT_NE(text.find("has a blank"), std::string::npos) << text;
}

TEST_F(RootChecks, AnExecutableThatNoUpgradeMayReplace) {
  machine.files.ProtectFromWriting("C:\\srv\\map-server.exe");
  EXPECT_EQ(Told(), "");
  machine.files.Put("D:\\new\\map.exe", ProgramBytes());
  machine.SetSetting("MapFrom", "D:\\new\\map.exe");
  EXPECT_NE(Told().find("warning folder [C:\\srv\\map-server.exe] This user has no right to write"),
            std::string::npos);
}

TEST_F(RootChecks, AShareThatWentAway) {
  machine.inspection.Silence("C:\\srv");
  EXPECT_EQ(Told(), "error folder [Server root] The folder does not answer.\n");
  EXPECT_EQ(machine.inspection.Waited(), 1000u);
}

TEST_F(RootChecks, FilesThatAreMissingOrCannotBeRead) {
  machine.files.Remove("C:\\srv\\conf\\login_athena.conf");
  machine.files.Remove("C:\\srv\\conf\\char_athena.conf");
  machine.files.Remove("C:\\srv\\conf\\battle_athena.conf");
  machine.files.LockForReading("C:\\srv\\conf\\map_athena.conf");
  EXPECT_EQ(Told(),
            "error folder [conf\\login_athena.conf] The file is missing.\n"
            "error folder [conf\\char_athena.conf] The file is missing.\n"
            "error folder [conf\\map_athena.conf] The file cannot be read: Access is denied\n"
            "warning sets [conf\\battle_athena.conf] The file cannot be read, so nothing can be "
            "randomized.\n");
}

TEST_F(RootChecks, SetsThatCannotBeReadWhole) {
  Put("randomize.xml", "<Randomize><base_exp_rate Min=\"1\" Max=\"2\"/>");
  Put("rndcalendar.xml", "<Calendar>\r\n");
  const std::string wrong =
      "The file cannot be read whole, so its entries can be neither all used nor changed.\n";
  EXPECT_EQ(Told(),
            "error sets [randomize.xml] " + wrong + "error sets [rndcalendar.xml] " + wrong);
}

TEST_F(RootChecks, SetsThatThisUserMayNotRead) {
  PutRanges("<base_exp_rate Min=\"1\" Max=\"2\"/>\r\n");
  machine.files.LockForReading("C:\\srv\\randomize.xml");
  EXPECT_TRUE(Told().starts_with("error sets [randomize.xml] The file cannot be read whole"))
      << Told();
}

TEST_F(RootChecks, FilesOfTheRandomizerThatAreEndlessAreReadNoFurtherThanOthers) {
  const std::string endless(CheckUp::kMostBytes + 100, '\t');
  Put("randomize.xml", "<Randomize></Randomize>\r\n" + endless);
  Put("conf\\battle_athena.conf", UsualBattleConf() + endless);
  EXPECT_EQ(Told(),
            "note conf-line-ends [conf\\battle_athena.conf] The file is so large that only its "
            "beginning was checked.\n"
            "error sets [randomize.xml] The file cannot be read whole, so its entries can be "
            "neither all used nor changed.\n");
  EXPECT_EQ(machine.inspection.LongestRead(), CheckUp::kMostBytes + 1);
}

TEST_F(RootChecks, OfSettingsThatWereNotReadToTheirEndNoneIsMissed) {
  Put("conf\\battle_athena.conf", std::string(CheckUp::kMostBytes + 100, '/'));
  PutRanges("<no_such_rate Min=\"100\" Max=\"300\"/>\r\n");
  EXPECT_EQ(Told().find("no_such_rate"), std::string::npos) << Told();
}

TEST_F(RootChecks, OfThousandRangesOfNoSettingFiftyAreToldAndHowManyMore) {
  std::string ranges;
  for (int i = 0; i < 1000; ++i) {
    ranges += "<no_such_" + std::to_string(i) + " Min=\"1\" Max=\"2\"/>\r\n";
  }
  PutRanges(ranges);
  const Findings found = Find();
  ASSERT_EQ(found.size(), 51u);
  EXPECT_EQ(found[49].about, "randomize.xml: no_such_49");
  EXPECT_EQ(found[50].about, "randomize.xml: 950 more");
  EXPECT_EQ(found[50].wrong, found[49].wrong);
}

TEST_F(RootChecks, FiftyRangesOfNoSettingAreAllTold) {
  std::string ranges;
  for (int i = 0; i < 50; ++i) {
    ranges += "<no_such_" + std::to_string(i) + " Min=\"1\" Max=\"2\"/>\r\n";
  }
  PutRanges(ranges);
  EXPECT_EQ(Find().size(), 50u);
}

TEST_F(RootChecks, SetsInOrder) {
  PutRanges("<base_exp_rate Min=\"100\" Max=\"300\"/>\r\n");
  PutEntries("<Mon_08:30 Restart=\"Yes\"/>\r\n<Sun_23:59 Restart=\"No\"/>\r\n");
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, ARangeOfNoSetting) {
  PutRanges("<no_such_rate Min=\"100\" Max=\"300\"/>\r\n");
  EXPECT_EQ(
      Told(),
      "warning sets [randomize.xml: no_such_rate] conf\\battle_athena.conf has no such setting, "
      "so its range has no effect.\n");
}

TEST_F(RootChecks, ARangeWhoseEndsAreCrossed) {
  PutRanges("<base_exp_rate Min=\"300\" Max=\"100\"/>\r\n");
  EXPECT_EQ(
      Told(),
      "note sets [randomize.xml: base_exp_rate] The range's minimum is above its maximum; the "
      "two are swapped when it is used.\n");
}

TEST_F(RootChecks, AnEntryThatIsNeverDue) {
  PutEntries("<Mon_24:00 Restart=\"Yes\"/>\r\n<Man_08:30 Restart=\"No\"/>\r\n<Mon_08:60/>\r\n");
  for (const char* name : {"Mon_24:00", "Man_08:30", "Mon_08:60"}) {
    EXPECT_NE(Told().find(std::string("warning sets [rndcalendar.xml: ") + name + "]"),
              std::string::npos)
        << Told();
  }
}

TEST_F(RootChecks, AnUpgradeInOrder) {
  PutNewFiles();
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, ANewFileThatIsNotChosenWhileOthersAre) {
  PutNewFiles();
  machine.SetSetting("MapFrom", "");
  EXPECT_EQ(Told(),
            "warning upgrade [Map] No new executable is chosen, so no upgrade can be made.\n");
}

TEST_F(RootChecks, ANewFileThatIsMissing) {
  PutNewFiles();
  machine.files.Remove("D:\\new\\Map.exe");
  EXPECT_EQ(Told(), "warning upgrade [Map: D:\\new\\Map.exe] The new executable is missing.\n");
}

TEST_F(RootChecks, ANewFileThatIsAFolder) {
  PutNewFiles();
  machine.SetSetting("MapFrom", "D:\\new");
  EXPECT_EQ(Told(), "warning upgrade [Map: D:\\new] The new executable is missing.\n");
}

TEST_F(RootChecks, ANewFileForAComponentWithoutAnExecutableIsComparedWithNone) {
  PutNewFiles();
  machine.SetSetting("MapExe", "no-such");
  EXPECT_EQ(Told(), "error executable [Map] No executable is chosen.\n");
}

TEST_F(RootChecks, WhereTheSystemTellsNoIdentitiesTwoFilesAreTwo) {
  PutNewFiles();
  machine.inspection.TellNoIdentity();
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, ANewFileThatIsOlderThanItsTarget) {
  PutNewFiles();
  machine.copies.SetDate("C:\\srv\\map-server.exe", 101);
  EXPECT_EQ(
      Told(),
      "warning upgrade [Map: D:\\new\\Map.exe] The new executable is older than the one that it "
      "would replace.\n");
}

TEST_F(RootChecks, ANewFileOfTheSameAgeIsWhatAnUpgradeLeaves) {
  PutNewFiles();
  machine.copies.SetDate("C:\\srv\\map-server.exe", 100);
  EXPECT_EQ(Told(), "");
}

TEST_F(RootChecks, ANewFileThatIsTheTargetItself) {
  PutNewFiles();
  machine.SetSetting("MapFrom", "c:\\SRV\\map-server.exe");
  EXPECT_EQ(
      Told(),
      "warning upgrade [Map: c:\\SRV\\map-server.exe] The new executable is the very file that "
      "it would replace.\n");
}

TEST_F(RootChecks, ANewFileOnAShareThatWentAwayIsWaitedForInSmallPieces) {
  PutNewFiles();
  machine.inspection.Silence("D:\\new");
  EXPECT_NE(Told().find("warning upgrade [Map: D:\\new\\Map.exe] The drive or share of the new "
                        "executable does not answer.\n"),
            std::string::npos);
  EXPECT_EQ(machine.inspection.Waited(), 3000u);
}

}  // namespace
}  // namespace tarvo
