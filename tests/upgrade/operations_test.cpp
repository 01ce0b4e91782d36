// The upgrade's operations called one by one, without the rest of the program.
#include <gtest/gtest.h>

#include <functional>

#include "form/bindings.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

class UpgradeOperations : public ::testing::Test {
 protected:
  UpgradeOperations() {
    for (ComponentKind kind : kComponents) {
      const std::string name = kServers[IndexOf(kind)];
      machine.files.Put("C:\\srv\\" + name, "old");
      machine.files.Put("C:\\new\\" + name, "new");
      for (const char* item : kServers) form.servers.Exes[kind].AddItem(item);
      form.servers.Exes[kind].SetListIndex(static_cast<int>(kind));
      form.upgrade.nPath[kind].SetText("C:\\new\\" + name);
    }
    startStop.endFreezeWatch = [this](ComponentKind) {
      if (whileStopping) whileStopping();
    };
  }
  void Run(ComponentKind kind) {
    startStop.StartComponent(kind);
    ASSERT_NE(components[kind].ProcessId, 0u);
  }

  SimMachine machine;
  ServerRoot root{machine.launcherPath, machine.codePage};
  TimerQueue queue{machine.clock};
  Form form{queue};
  ComponentTable components;
  ProcessControl processes{machine.processes, machine.processes,     machine.clock,
                           machine.codePage,  machine.workingFolder, form.servers.Exes,
                           "C:\\srv"};
  StatusLog log{machine.clock};
  LauncherEvents events;
  StartStop startStop{BindStartStop(form), components, processes, log, events, machine.boxes};
  SettingsStore store{machine.registry, root.SettingsKey()};
  UpgradeSettings settings{BindUpgradeSettings(form), store, root, machine.fileDialog,
                           machine.boxes};
  ComponentUpgrade upgrade{{BindUpgrade(form), components, startStop, log, events, settings,
                            machine.inspection, PatientCopies(machine.copies, machine.clock),
                            machine.clock, machine.boxes, root.AppFolder()}};
  std::function<void()> whileStopping;
};

TEST_F(UpgradeOperations, GiveTheirCodesAndPaths) {
  EXPECT_EQ(upgrade.RunUpgrade(0), kUpgradeDone);
  EXPECT_EQ(upgrade.RunUpgrade(0), kUpgradeNothingNew);
  form.upgrade.nPath[ComponentKind::Map].SetText("C:\\new\\char-server.exe");
  EXPECT_EQ(upgrade.RunUpgrade(0), kUpgradeSameFile);
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_EQ(settings.TargetPath(ComponentKind::Map), "C:\\srv\\map-server.exe");
  EXPECT_NE(settings.StoredDate(ComponentKind::Char), "");
}

TEST_F(UpgradeOperations, TheCodeThatPointsToTheLogShowsItsPage) {
  for (int code : {1, 2, 4, 5, 6, 7, 8, 9, 0, 3}) {
    form.frame.SSTab1.SetPage(3);
    upgrade.ShowResult(code);
    EXPECT_EQ(form.frame.SSTab1.Page(), code == 3 ? 0 : 3) << code;
  }
  EXPECT_EQ(machine.boxes.Shown().back().text, "Error, please check log Window!");
}

TEST_F(UpgradeOperations, TheTriggerDecidesWhoseCrashIsTakenOver) {
  const struct {
    std::size_t trigger;
    ComponentKind kind;
    bool taken;
  } table[] = {{0, ComponentKind::Map, false},  {1, ComponentKind::Login, false},
               {1, ComponentKind::Char, false}, {1, ComponentKind::Map, true},
               {2, ComponentKind::Login, true}, {2, ComponentKind::Char, true},
               {2, ComponentKind::Map, true}};
  for (const auto& entry : table) {
    for (const char* name : {"LDATE", "CDATE", "MDATE"}) machine.SetSetting(name, "");
    form.upgrade.optMode[entry.trigger].Select();
    EXPECT_EQ(upgrade.TakesOverCrash(entry.kind), entry.taken)
        << entry.trigger << NameOf(entry.kind);
  }
}

TEST_F(UpgradeOperations, ARefusedUpgradeTakesNoCrashOver) {
  form.upgrade.optMode[2].Select();
  form.upgrade.nPath[ComponentKind::Login].SetText("");
  EXPECT_FALSE(upgrade.TakesOverCrash(ComponentKind::Char));
}

TEST_F(UpgradeOperations, ACrashWhileServersAreStoppedIsNotTakenOverAndOneAfterwardsIs) {
  form.upgrade.optMode[2].Select();
  Run(ComponentKind::Login);
  int asked = 0;
  whileStopping = [&] {
    ++asked;
    EXPECT_FALSE(upgrade.TakesOverCrash(ComponentKind::Char));
  };
  EXPECT_EQ(upgrade.RunUpgrade(0), kUpgradeDone);
  EXPECT_EQ(asked, 1);
  whileStopping = nullptr;
  for (const char* name : {"LDATE", "CDATE", "MDATE"}) machine.SetSetting(name, "");
  EXPECT_TRUE(upgrade.TakesOverCrash(ComponentKind::Char));
}

}  // namespace
}  // namespace tarvo
