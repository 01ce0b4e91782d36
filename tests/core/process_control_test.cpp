#include "core/process_control.h"

#include <gtest/gtest.h>

#include "support/runtime_error.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

class ControlledProcesses : public ::testing::Test {
 protected:
  ControlledProcesses() {
    for (DropDownList& chooser : Exes) {
      for (const char* name : kServers) chooser.AddItem(name);
    }
    for (ComponentKind kind : kComponents) Exes[kind].SetListIndex(static_cast<int>(kind));
  }

  SimMachine machine;
  PerComponent<DropDownList> Exes;
  ProcessControl control{machine.processes, machine.processes,     machine.clock,
                         machine.codePage,  machine.workingFolder, Exes,
                         "C:\\srv"};
};

TEST(PriorityClass, FollowsTheListAndNotItsNames) {
  const struct {
    int index;
    std::uint32_t priorityClass;
  } cases[] = {{0, 0x40},  {1, 0x4000}, {2, 0x20}, {3, 0x8000}, {4, 0x80},
               {5, 0x100}, {6, 0},      {-1, 0},   {100, 0}};
  for (const auto& c : cases) EXPECT_EQ(PriorityClassFor(c.index), c.priorityClass) << c.index;
}

TEST_F(ControlledProcesses, FindsAProcessByItsWholeFileNameInAnyLetterCase) {
  const ProcessId id = machine.processes.StartForeign("Login-Server.EXE");
  const struct {
    const char* name;
    bool found;
  } cases[] = {
      {"login-server.exe", true},          {"LOGIN-SERVER.exe", true},   {"login-server", false},
      {"login-server.ex", false},          {"login-server.exe ", false}, {"ogin-server.exe", false},
      {"C:\\srv\\login-server.exe", false}};
  for (const auto& c : cases) {
    EXPECT_EQ(control.FindProcessByName(c.name), c.found ? id : 0) << c.name;
  }
}

TEST_F(ControlledProcesses, LettersOutsideOfAsciiMeetInAnyLetterCaseToo) {
  const ProcessId id = machine.processes.StartForeign("SERVIDOR-\xD1.EXE");
  EXPECT_EQ(control.FindProcessByName("servidor-\xF1.exe"), id);
  EXPECT_EQ(control.FindProcessByName("Servidor-\xD1.exe"), id);
  EXPECT_EQ(control.FindProcessByName("servidor-n.exe"), 0u);
  machine.processes.StartForeign("servidor-\xD7.exe");
  EXPECT_EQ(control.FindProcessByName("servidor-\xF7.exe"), 0u);
  control.KillProcessesByName("servidor-\xF1.exe");
  EXPECT_EQ(control.FindProcessByName("SERVIDOR-\xD1.EXE"), 0u);
}

TEST_F(ControlledProcesses, AnEmptyNameFindsAndEndsNothingWithoutASnapshot) {
  EXPECT_EQ(control.FindProcessByName(""), 0u);
  control.KillProcessesByName("");
  EXPECT_EQ(machine.recorder.Count(), 0u);
}

TEST_F(ControlledProcesses, OfTwoCopiesTheFirstIsFoundAndBothAreEnded) {
  const ProcessId first = machine.processes.StartForeign(kMap);
  machine.processes.StartForeign("MAP-server.exe");
  machine.processes.StartForeign(kLogin);
  EXPECT_EQ(control.FindProcessByName(kMap), first);
  control.KillProcessesByName(kMap);
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(ControlledProcesses, APriorityOfNoProcessHasNoEffect) {
  const ProcessId id = machine.processes.StartForeign(kMap);
  control.SetPriority(0, 0x80);
  control.SetPriority(4711, 0x80);
  EXPECT_EQ(machine.processes.TheOne(kMap).priorityClass, 0x20u);
  control.SetPriority(id, 0x80);
  EXPECT_EQ(machine.processes.TheOne(kMap).priorityClass, 0x80u);
}

TEST_F(ControlledProcesses, TheMainWindowIsTheFirstInFrontThatHasNoParent) {
  const ProcessId id = machine.processes.StartForeign(kMap);
  const WindowHandle behind = machine.processes.WindowOf(id)->handle;
  const WindowHandle child = machine.processes.OpenWindow(id, behind);
  machine.processes.StartForeign(kLogin);
  EXPECT_EQ(machine.processes.Windows().front().owner, machine.processes.TheOne(kLogin).id);
  EXPECT_EQ(control.FindMainWindow(id), behind);
  const WindowHandle inFront = machine.processes.OpenWindow(id);
  EXPECT_EQ(control.FindMainWindow(id), inFront);
  machine.processes.Raise(child);
  EXPECT_EQ(control.FindMainWindow(id), inFront);
}

TEST_F(ControlledProcesses, AProcessWithoutAWindowOrWithAChildWindowAloneHasNone) {
  machine.processes.Program(kMap).opensWindow = false;
  const ProcessId id = machine.processes.StartForeign(kMap);
  EXPECT_EQ(control.FindMainWindow(id), 0);
  machine.processes.OpenWindow(id, 0x10002);
  EXPECT_EQ(control.FindMainWindow(id), 0);
}

TEST_F(ControlledProcesses, ProcessZeroOwnsNoWindow) {
  machine.processes.OpenWindow(0);
  EXPECT_EQ(control.FindMainWindow(0), 0);
}

TEST_F(ControlledProcesses, AWalkThatLosesItsWindowIsBegunAgain) {
  // A window that vanished under the walk ended it early, and a healthy server was restarted.
  const ProcessId id = machine.processes.StartForeign(kMap);
  const WindowHandle main = machine.processes.WindowOf(id)->handle;
  for (int i = 0; i < 5; ++i) {
    const ProcessId other = machine.processes.StartForeign("other.exe");
    machine.processes.VanishUnderWalk(machine.processes.WindowOf(other)->handle);
  }
  EXPECT_EQ(control.FindMainWindow(id), main);
  EXPECT_EQ(machine.recorder.CountOf("windows.first"), 6u);
}

// Twenty walks that lost their window were taken for "no window", and a healthy server was killed.
TEST_F(ControlledProcesses, WalksThatLoseTheirWindowsWithoutEndProveNothing) {
  const ProcessId id = machine.processes.StartForeign(kMap);
  const WindowHandle main = machine.processes.WindowOf(id)->handle;
  for (int i = 0; i < 25; ++i) {
    const ProcessId other = machine.processes.StartForeign("other.exe");
    machine.processes.VanishUnderWalk(machine.processes.WindowOf(other)->handle);
  }
  EXPECT_EQ(control.FindMainWindow(id), std::nullopt);
  EXPECT_EQ(machine.recorder.CountOf("windows.first"), 20u);
  EXPECT_EQ(control.FindMainWindow(id), main);
}

TEST_F(ControlledProcesses, AListThatTurnsInACircleProvesNothing) {
  const ProcessId none = machine.processes.StartForeign("other.exe");
  machine.processes.CloseWindows(none);
  const ProcessId id = machine.processes.StartForeign(kMap);
  machine.processes.TurnInACircle();
  EXPECT_EQ(control.FindMainWindow(none), std::nullopt);
  EXPECT_EQ(machine.recorder.CountOf("windows.first"), 1u);
  EXPECT_EQ(machine.recorder.CountOf("windows.next"), 100000u);
  EXPECT_EQ(control.FindMainWindow(id), machine.processes.WindowOf(id)->handle);
}

TEST_F(ControlledProcesses, AWindowThatVanishesAtTheEndOfTheListHidesNothing) {
  const ProcessId gone = machine.processes.StartForeign("other.exe");
  const WindowHandle last = machine.processes.Windows().back().handle;
  machine.processes.VanishUnderWalk(last);
  machine.processes.CloseWindows(gone);
  EXPECT_EQ(control.FindMainWindow(gone), 0);
  // One walk that lost its window, and two that agree.
  EXPECT_EQ(machine.recorder.CountOf("windows.first"), 3u);
}

TEST_F(ControlledProcesses, ThatAProcessOwnsNoWindowIsBelievedAfterASecondWalk) {
  const ProcessId id = machine.processes.StartForeign("other.exe");
  EXPECT_NE(control.FindMainWindow(id), 0);
  EXPECT_EQ(machine.recorder.CountOf("windows.first"), 1u);
  machine.processes.CloseWindows(id);
  EXPECT_EQ(control.FindMainWindow(id), 0);
  EXPECT_EQ(machine.recorder.CountOf("windows.first"), 3u);
}

TEST_F(ControlledProcesses, ShowingUsesTheNormalStateAndHidingHides) {
  const ProcessId id = machine.processes.StartForeign(kMap);
  const WindowHandle window = machine.processes.WindowOf(id)->handle;
  EXPECT_EQ(control.ShowComponentWindow(window, true), 0);
  EXPECT_TRUE(machine.processes.WindowOf(id)->visible);
  EXPECT_NE(control.ShowComponentWindow(window, false), 0);
  EXPECT_FALSE(machine.processes.WindowOf(id)->visible);
  EXPECT_EQ(machine.recorder.Calls().front(), "windows.show(" + std::to_string(window) + ", 1)");
  EXPECT_EQ(machine.recorder.Calls().back(), "windows.show(" + std::to_string(window) + ", 0)");
}

TEST_F(ControlledProcesses, NoWindowIsShownWithoutACall) {
  EXPECT_EQ(control.ShowComponentWindow(0, true), 0);
  EXPECT_EQ(control.ShowComponentWindow(0, false), 0);
  EXPECT_EQ(machine.recorder.Count(), 0u);
}

TEST_F(ControlledProcesses, LaunchesTheChosenExecutableOfTheRoot) {
  const ProcessId id = control.LaunchComponent(ComponentKind::Char).id;
  EXPECT_EQ(machine.processes.TheOne(kChar).id, id);
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{"workingFolder.moveInto(C:\\srv\\)",
                                      "processes.launch(C:\\srv\\char-server.exe)"}));
}

TEST_F(ControlledProcesses, ALaunchOfAMissingFileIsAFault) {
  machine.processes.LoseExecutables();
  try {
    control.LaunchComponent(ComponentKind::Map);
    FAIL() << "a missing file passed for a started process";
  } catch (const RuntimeError& fault) {
    EXPECT_EQ(fault.Number(), 53);
    EXPECT_EQ(fault.Source(), "C:\\srv\\map-server.exe");
    EXPECT_EQ(fault.Description(), "File not found");
  }
}

TEST_F(ControlledProcesses, ALaunchThatIsRefusedForAnotherReasonTellsIt) {
  machine.processes.Program(kMap).launchFault = NoRights();
  const LaunchResult launched = control.LaunchComponent(ComponentKind::Map);
  EXPECT_EQ(launched.id, 0u);
  EXPECT_EQ(launched.reason.number, 5);
  EXPECT_EQ(launched.reason.description, "Access is denied");
}

TEST_F(ControlledProcesses, StoppingEndsEveryProcessOfTheName) {
  for (int i = 0; i < 3; ++i) machine.processes.StartForeign(kMap);
  const std::uint64_t start = machine.clock.Age();
  EXPECT_TRUE(control.StopProcesses(ComponentKind::Map));
  EXPECT_EQ(machine.clock.Age() - start, 0u) << "waited for processes that were gone";
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
}

TEST_F(ControlledProcesses, StoppingEndsWhatHasSurvivedTheFirstTime) {
  machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).program.refusesToDie = true;
  int rounds = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("processes.end(")) return;
    if (++rounds == 2) machine.processes.TheOne(kMap).program.refusesToDie = false;
  };
  EXPECT_TRUE(control.StopProcesses(ComponentKind::Map));
  EXPECT_EQ(rounds, 2);
}

TEST_F(ControlledProcesses, StoppingWaitsForAProcessThatTakesItsTimeToDie) {
  machine.processes.Program(kMap).dyingTime = 300;
  machine.processes.StartForeign(kMap);
  const std::uint64_t start = machine.clock.Age();
  EXPECT_TRUE(control.StopProcesses(ComponentKind::Map));
  EXPECT_TRUE(machine.processes.Named(kMap).empty());
  EXPECT_EQ(machine.clock.Age() - start, 300u);
}

TEST_F(ControlledProcesses, StoppingGivesUpAProcessThatRefusesToDie) {
  machine.processes.Program(kMap).refusesToDie = true;
  machine.processes.StartForeign(kMap);
  const std::uint64_t start = machine.clock.Age();
  EXPECT_FALSE(control.StopProcesses(ComponentKind::Map));
  EXPECT_EQ(machine.clock.Age() - start, 5000u);
}

TEST_F(ControlledProcesses, StoppingMeasuresItsTimeAcrossTheWrapOfTheTickCount) {
  machine.clock.SetTicks(0xFFFFFFFF - 1000);
  machine.processes.Program(kMap).refusesToDie = true;
  machine.processes.StartForeign(kMap);
  const std::uint64_t start = machine.clock.Age();
  EXPECT_FALSE(control.StopProcesses(ComponentKind::Map));
  EXPECT_LE(machine.clock.Age() - start, ProcessControl::kLongestStop + 50);
}

}  // namespace
}  // namespace tarvo
