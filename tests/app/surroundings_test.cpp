// What the launcher finds around it at its start and sets right: the current folder, and the
// system's error dialogs.

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Surroundings : public LauncherStory {
 protected:
  void Browse() {
    launcher->TheProgram().Dispatch().Run(
        [this] { launcher->TheForm().upgrade.cmd_nBrowse[ComponentKind::Map].Click(); });
  }
};

// "Start with Windows" starts the launcher in System32: its servers looked for their conf files
// there, died, and were started again every 5 seconds without end.
TEST_F(Surroundings, TheServersFindTheirConfWhereverTheLauncherWasStarted) {
  for (const char* setting : {"LoginAutoStart", "CharAutoStart", "MapAutoStart"}) {
    machine.SetSetting(setting, "1");
  }
  ASSERT_EQ(machine.workingFolder.current, "C:\\Windows\\System32\\");
  StartLauncher();
  launcher->Pass(1min);
  for (const char* server : {kLogin, kChar, kMap}) {
    EXPECT_EQ(machine.processes.Named(server).size(), 1u) << server;
  }
  EXPECT_EQ(launcher->CountInLog("Login Server crashed, restarting..."), 0u);
}

TEST_F(Surroundings, TheLauncherMovesIntoItsOwnFolderBeforeAnythingElse) {
  StartLauncher();
  EXPECT_EQ(machine.workingFolder.current, "C:\\srv\\");
  machine.launcherPath = "D:\\launcher.exe";
  machine.PutConf("D:", UsualCharConf(), UsualMapConf());
  StartLauncher();
  EXPECT_EQ(machine.workingFolder.current, "D:\\");
}

TEST_F(Surroundings, AFileDialogLeavesTheLauncherInItsOwnFolder) {
  StartLauncher();
  Browse();
  ASSERT_EQ(machine.fileDialog.asked.size(), 1u);
  EXPECT_EQ(machine.workingFolder.current, "C:\\srv\\");
}

TEST_F(Surroundings, AServerThatIsStartedAgainUnderAFileDialogFindsItsConf) {
  StartWithAllServers();
  machine.fileDialog.whileNextIsOpen = [this] {
    Crash(kMap);
    launcher->Pass(12s);
  };
  Browse();
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
}

// A server that had died of an access violation lived on under the system's error dialog, its
// window and its port open, and nobody restarted it before somebody had answered the dialog.
TEST_F(Surroundings, AServerThatDiesOfAFaultIsHeldOpenByNoDialog) {
  StartWithAllServers();
  machine.processes.Fault(Process(kMap).id);
  launcher->Pass(5s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
}

TEST_F(Surroundings, WhatSomebodyElseStartedKeepsItsDialog) {
  const ProcessId map = machine.processes.StartForeign(kMap);
  StartWithAllServers();
  machine.processes.Fault(map);
  launcher->Pass(10s);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(Process(kMap).id, map);
}

}  // namespace
}  // namespace tarvo
