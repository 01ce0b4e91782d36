#include "checkup/executable_checks.h"

#include "tests/checkup/check_up_desk.h"

namespace tarvo {
namespace {

class ExecutableChecks : public CheckUpDesk {};

TEST_F(ExecutableChecks, NoneChosen) {
  machine.SetSetting("MapExe", "no-such");
  EXPECT_EQ(Told(), "error executable [Map] No executable is chosen.\n");
}

TEST_F(ExecutableChecks, ChosenTwice) {
  machine.SetSetting("MapExe", "char-server");
  EXPECT_EQ(Told(),
            "error executable [Char and Map: char-server.exe] One executable is chosen for two "
            "components, so nothing can be started.\n");
}

TEST_F(ExecutableChecks, TheLauncherItself) {
  machine.SetSetting("MapExe", "tarvo");
  EXPECT_EQ(
      Told(),
      "error executable [Map: tarvo-launcher.exe] The launcher's own executable is chosen.\n");
}

TEST_F(ExecutableChecks, NoProgramOfWindows) {
  const std::string told =
      "error executable [Map: map-server.exe] The file is no program of Windows.\n";
  for (const std::string& bytes :
       {std::string("MZ"), std::string(), std::string(4096, 'x'), ProgramBytes(0x8664, 3, true),
        "MZ" + std::string(0x3A, '\0') + "\xFF\xFF\xFF\x7F", ProgramBytes().substr(0, 200),
        ProgramBytes().replace(128, 2, "NE")}) {
    Put(kMap, bytes);
    EXPECT_EQ(Told(), told);
  }
}

TEST_F(ExecutableChecks, ForAnotherProcessor) {
  Put(kMap, ProgramBytes(0xAA64));
  EXPECT_EQ(
      Told(),
      "error executable [Map: map-server.exe] The program was built for another processor.\n");
  Put(kMap, ProgramBytes(0x14C));
  EXPECT_EQ(Told(), "");
}

TEST_F(ExecutableChecks, AProgramOfWindowsUnlessItRunsAndOwnsOne) {
  Put(kMap, ProgramBytes(0x8664, 2));
  const std::string told =
      "note executable [Map: map-server.exe] The program is one of windows without a console; if "
      "it "
      "opens no window, it counts as crashed.\n";
  EXPECT_EQ(Told(), told);
  const ProcessId map = machine.processes.StartForeign(kMap);
  EXPECT_EQ(Told(), "");
  machine.processes.CloseWindows(map);
  EXPECT_EQ(Told(), told);
  machine.processes.OpenWindow(map, machine.processes.First());
  EXPECT_EQ(Told(), told) << "a window of another window's is none that the crash watch sees";
}

TEST_F(ExecutableChecks, AWindowThatClosesUnderTheLookHidesNoOther) {
  Put(kMap, ProgramBytes(0x8664, 2));
  machine.processes.StartForeign(kMap);
  machine.processes.VanishUnderWalk(
      machine.processes.WindowOf(machine.processes.StartForeign("other.exe"))->handle);
  EXPECT_EQ(Told(), "");
}

TEST_F(ExecutableChecks, WindowsInACircleAreWalkedOnlySoLong) {
  Put(kMap, ProgramBytes(0x8664, 2));
  const ProcessId map = machine.processes.StartForeign(kMap);
  machine.processes.CloseWindows(map);
  EXPECT_TRUE(Told().starts_with("note executable [Map: map-server.exe]")) << Told();
  machine.processes.TurnInACircle();
  EXPECT_EQ(Told(), "") << "whether it owns one is not known";
}

TEST_F(ExecutableChecks, AFileThatCannotBeReadIsNotJudged) {
  machine.files.LockForReading("C:\\srv\\map-server.exe");
  EXPECT_EQ(Told(), "");
}

TEST(Executables, OneThatIsMissing) {
  PerComponent<ExecutableFacts> facts;
  for (ComponentKind kind : kComponents) {
    facts[kind] = {NameOf(kind), true, true, false, {true, 0x8664, true}, true, false};
  }
  EXPECT_TRUE(CheckExecutables(facts).empty());
  facts[ComponentKind::Map].present = false;
  ASSERT_EQ(CheckExecutables(facts).size(), 1u);
  EXPECT_EQ(CheckExecutables(facts)[0].wrong, "The file is missing in the server root.");
}

TEST_F(ExecutableChecks, AProcessOfThatNameFromAnotherFolder) {
  machine.processes.Program("Map-Server.exe").port = 0;
  const ProcessId map = machine.processes.StartForeign("Map-Server.exe");
  machine.processes.TheOne("map-server.exe").path = "D:\\other\\Map-Server.exe";
  EXPECT_EQ(Told(), "warning same-name [Map: map-server.exe (process " + std::to_string(map) +
                        ")] A process of that name runs as D:\\other\\Map-Server.exe, and \"Stop\" "
                        "would end it as well.\n");
}

TEST_F(ExecutableChecks, AnotherNameOfTheRootsOwnFileIsNone) {
  machine.processes.StartForeign(kMap);
  machine.files.Link("X:\\map-server.exe", "C:\\srv\\map-server.exe");
  machine.processes.TheOne(kMap).path = "X:\\map-server.exe";
  EXPECT_EQ(Told(), "");
}

TEST_F(ExecutableChecks, WithoutIdentitiesAnotherPathIsAnotherFile) {
  machine.inspection.TellNoIdentity();
  machine.processes.StartForeign(kMap);
  EXPECT_EQ(Told(), "");
  machine.files.Link("X:\\map-server.exe", "C:\\srv\\map-server.exe");
  machine.processes.TheOne(kMap).path = "X:\\map-server.exe";
  EXPECT_NE(Told().find("runs as X:\\map-server.exe"), std::string::npos) << Told();
}

TEST_F(ExecutableChecks, OfAHundredProcessesOfThatNameTwentyAreTold) {
  for (int i = 0; i < 100; ++i) machine.processes.StartForeign(kMap, "D:\\other\\");
  const std::string told = Told();
  std::size_t count = 0;
  for (std::size_t at = told.find("same-name"); at != std::string::npos;
       at = told.find("same-name", at + 1)) {
    ++count;
  }
  EXPECT_EQ(count, 20u);
}

TEST_F(ExecutableChecks, ProcessesFromAShareThatWentAwayAreWaitedForOnce) {
  machine.inspection.Silence("Z:\\");
  for (int i = 0; i < 3; ++i) machine.processes.StartForeign(kMap, "Z:\\srv\\");
  EXPECT_NE(Told().find("runs as Z:\\srv\\map-server.exe"), std::string::npos);
  EXPECT_EQ(machine.inspection.Waited(), CheckUp::kLongestWait);
}

TEST_F(ExecutableChecks, AProcessThatTellsNoPathIsNotJudged) {
  machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).path.clear();
  EXPECT_EQ(Told(), "");
}

TEST_F(ExecutableChecks, AProcessOfAnotherSession) {
  const ProcessId map = machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).session = 0;
  EXPECT_EQ(Told(),
            "warning same-name [Map: map-server.exe (process " + std::to_string(map) +
                ")] The process runs in another session, where its window cannot be seen, so "
                "it would count as crashed.\n");
}

TEST_F(ExecutableChecks, AProcessWhoseSessionTheSystemDoesNotTellIsNotJudged) {
  machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).session.reset();
  EXPECT_EQ(Told(), "");
}

TEST_F(ExecutableChecks, TheSessionOfALauncherOfAnotherRootDoesNotCount) {
  machine.processes.StartForeign("tarvo-launcher.exe", "D:\\other\\");
  machine.processes.TheOne("tarvo-launcher.exe").session = 5;
  machine.processes.StartForeign(kMap);
  EXPECT_EQ(Told(), "");
  machine.processes.TheOne(kMap).session = 5;
  EXPECT_NE(Told().find("The process runs in another session"), std::string::npos) << Told();
}

TEST_F(ExecutableChecks, TheSessionOfWhoeverAsksDoesNotCountBesideTheLauncher) {
  machine.processes.StartForeign("asks.exe");
  machine.processes.StartForeign("tarvo-launcher.exe");
  const SimProcess& launcher = machine.processes.TheOne("tarvo-launcher.exe");
  machine.processes.TheOne("tarvo-launcher.exe").session = 5;
  SimProcess& asks = machine.processes.TheOne("asks.exe");
  asks.path = launcher.path;
  asks.executable = launcher.executable;
  asks.id = SimInspection::kOwnId;
  machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).session = 5;
  EXPECT_EQ(Told(), "");
}

TEST_F(ExecutableChecks, TheSessionIsThatOfTheLauncherThatRunsHere) {
  machine.processes.StartForeign("tarvo-launcher.exe");
  machine.processes.TheOne("tarvo-launcher.exe").session = 5;
  machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).session = 5;
  EXPECT_EQ(Told(), "");
}

}  // namespace
}  // namespace tarvo
