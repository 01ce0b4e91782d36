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
  for (const char* server : kServers) {
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

// Each root's name ends with a character whose second byte is a "\\".
TEST_F(Surroundings, ARootInAnyCodePageIsAServerRoot) {
  const struct {
    int codePage;
    std::string root;
  } cases[] = {{932, "C:\\\x95\x5C"},
               {936, "C:\\\x81\x5C"},
               {949, "C:\\\xBC\xAD"},
               {950, "D:\\\xA5\x5C\\\xB3\x5C"},
               {1251, "C:\\\xD1\xE5\xF0\xE2\xE5\xF0"}};
  for (const auto& c : cases) {
    machine.codePage.Use(c.codePage);
    machine.launcherPath = c.root + "\\tarvo-launcher.exe";
    machine.PutConf(c.root, UsualCharConf(), UsualMapConf());
    for (const char* server : kServers) {
      machine.files.Put(c.root + "\\" + server, "MZ");
    }
    machine.SetSetting("AutoRandomize", "1");
    StartWithAllServers();
    EXPECT_EQ(machine.boxes.NewTexts(), "") << c.codePage;
    Crash(kLogin);
    launcher->Pass(5s);
    EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u) << c.codePage;
    EXPECT_EQ(launcher->CountInLog("Login Server crashed, restarting..."), 1u) << c.codePage;
    launcher->Click("bStart", 4);
    launcher->Choose("Prior", 1, "V-High");
    launcher->Close();
    EXPECT_EQ(machine.Setting("CharPri"), "4") << c.codePage;
    StartLauncher();
    EXPECT_EQ(launcher->TheForm().servers.Prior[ComponentKind::Char].Text(), "V-High")
        << c.codePage;
    launcher->Close();
  }
}

TEST_F(Surroundings, AProcessIsKnownByItsNameInTheCodePagesLetterCase) {
  machine.codePage.Use(932);
  machine.files.Put("C:\\srv\\\x82\x8D\x95\x5C.exe", "MZ");
  machine.SetSetting("MapExe", "\x82\x8D\x95\x5C.exe");
  const ProcessId map = machine.processes.StartForeign("\x82\x6C\x95\x5C.EXE");
  StartLauncher();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, map);
  launcher->Click("bStart", 2);
  launcher->Click("bStart", 2);
  EXPECT_EQ(machine.processes.Named("\x82\x8D\x95\x5C.exe").size(), 1u);
  EXPECT_NE(launcher->Of(ComponentKind::Map).ProcessId, map);
}

TEST_F(Surroundings, AFolderOutsideTheCodePageIsRefusedByItsCause) {
  // Another root lies where the letters that stand for its own would lead to.
  machine.launcherPathInCodePage = false;
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Please, copy and start this application inside your eAthena / Freya Server Root!\r\n"
            "The path of this folder has letters that the system's code page does not have.\n");
  EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Critical);
  EXPECT_EQ(launcher->ExitCode(), kExitRefused);
}

}  // namespace
}  // namespace tarvo
