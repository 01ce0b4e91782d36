#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr char kRunKey[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
using Entries = std::map<std::string, std::string>;

class StartUpEntry : public LauncherStory {
 protected:
  Entries EntriesOf(Hive hive) { return machine.registry.ValuesOf(hive, kRunKey); }
};

TEST_F(StartUpEntry, IsWrittenAndDeletedByTheOperatorsClick) {
  StartLauncher();
  launcher->Click("Check2");
  EXPECT_EQ(EntriesOf(Hive::LocalMachine), (Entries{{"Northwind", "C:\\srv\\tarvo-launcher.exe"}}));
  launcher->Click("Check2");
  EXPECT_EQ(EntriesOf(Hive::LocalMachine), Entries{});
}

TEST_F(StartUpEntry, ItsCheckMarkIsSavedAtTheClose) {
  StartLauncher();
  launcher->Check("Check2", 0, true);
  launcher->Close();
  EXPECT_EQ(machine.Setting("RunAtStartup"), "1");
}

TEST_F(StartUpEntry, HoldsOneBackslashBeforeTheExecutablesName) {
  struct Row {
    const char* folder;
    const char* executable;
    const char* command;
  };
  for (const Row& row : {Row{"C:", "C:\\launcher.exe", "C:\\launcher.exe"},
                         Row{"C:\\my servers", "C:\\my servers\\The Launcher.EXE",
                             "C:\\my servers\\The Launcher.exe"},
                         Row{"C:\\a.b", "C:\\a.b\\tarvo", "C:\\a.b\\tarvo.exe"}}) {
    machine.launcherPath = row.executable;
    machine.PutConf(row.folder, UsualCharConf(), UsualMapConf());
    StartLauncher();
    ASSERT_FALSE(launcher->Ended()) << row.executable;
    launcher->Check("Check2", 0, true);
    EXPECT_EQ(EntriesOf(Hive::LocalMachine), (Entries{{"Northwind", row.command}}));
    launcher->Check("Check2", 0, false);
  }
}

TEST_F(StartUpEntry, WithoutTheRightToWriteNothingHappensAndNothingIsSaid) {
  machine.registry.Deny(Hive::LocalMachine);
  StartLauncher();
  launcher->Click("Check2");
  EXPECT_EQ(EntriesOf(Hive::LocalMachine), Entries{});
  EXPECT_EQ(EntriesOf(Hive::CurrentUser), Entries{});
  launcher->Click("Check2");
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(StartUpEntry, ADeletionThatIsRefusedLeavesTheEntry) {
  StartLauncher();
  launcher->Click("Check2");
  machine.registry.Deny(Hive::LocalMachine);
  launcher->Click("Check2");
  EXPECT_EQ(EntriesOf(Hive::LocalMachine).size(), 1U);
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(StartUpEntry, BearsTheServersNameWhateverItHolds) {
  for (const std::string& name : {std::string("R&D \xE9\xFC"), std::string(300, 'x')}) {
    machine.PutConf("C:\\srv", "server_name: " + name + "\r\n", UsualMapConf());
    StartLauncher();
    launcher->Check("Check2", 0, true);
    EXPECT_EQ(EntriesOf(Hive::LocalMachine), (Entries{{name, "C:\\srv\\tarvo-launcher.exe"}}));
    launcher->Check("Check2", 0, false);
    EXPECT_EQ(EntriesOf(Hive::LocalMachine), Entries{});
  }
}

TEST_F(StartUpEntry, OfAServerWithoutANameIsTheKeysOwnValue) {
  machine.PutConf("C:\\srv", "char_ip:127.0.0.1\r\n", UsualMapConf());
  StartLauncher();
  launcher->Click("Check2");
  EXPECT_EQ(EntriesOf(Hive::LocalMachine), (Entries{{"", "C:\\srv\\tarvo-launcher.exe"}}));
}

TEST_F(StartUpEntry, LoadingTheSettingsWritesNone) {
  machine.SetSetting("RunAtStartup", "1");
  StartLauncher();
  EXPECT_TRUE(launcher->TheForm().servers.Check2.Checked());
  EXPECT_EQ(EntriesOf(Hive::LocalMachine), Entries{});
}

class StartMinimized : public LauncherStory {};

TEST_F(StartMinimized, AnyTextButZeroHidesTheWindowFromTheStart) {
  struct Row {
    const char* text;
    bool minimized;
  };
  for (const Row& row : {Row{"1", true}, Row{"0", false}, Row{"2", true}, Row{"", true}}) {
    machine.SetSetting("StartMinimized", row.text);
    StartLauncher();
    EXPECT_EQ(launcher->TheForm().servers.SMinimized.Checked(), row.minimized) << row.text;
    EXPECT_EQ(launcher->Window().Visible(), !row.minimized) << row.text;
  }
}

TEST_F(StartMinimized, ClickingTheBoxLeavesTheWindowAloneUntilTheNextStart) {
  StartLauncher();
  launcher->Click("SMinimized");
  EXPECT_TRUE(launcher->Window().Visible());
  launcher->Close();
  EXPECT_EQ(machine.Setting("StartMinimized"), "1");
  StartLauncher();
  EXPECT_FALSE(launcher->Window().Visible());
}

class ShowWindows : public LauncherStory {
 protected:
  bool Visible(const char* server) {
    return machine.processes.WindowOf(Process(server).id)->visible;
  }
  /// The crash watch has seen every server's window.
  void StartAndLook() {
    StartWithAllServers();
    for (const char* server : kServers) {
      machine.processes.WindowOf(Process(server).id)->visible = true;
    }
    machine.recorder.Forget();
  }
};

TEST_F(ShowWindows, TheFirstPressHidesTheSecondShows) {
  StartAndLook();
  for (std::size_t i = 0; i < 3; ++i) {
    launcher->Click("opt_ShowWin", i);
    EXPECT_FALSE(Visible(kServers[i])) << kServers[i];
    launcher->Click("opt_ShowWin", i);
    EXPECT_TRUE(Visible(kServers[i])) << kServers[i];
  }
}

TEST_F(ShowWindows, TheFirstPressHidesAWindowThatWasHiddenFromTheStart) {
  StartWithAllServers();
  ASSERT_FALSE(Visible(kMap));
  launcher->Click("opt_ShowWin", 2);
  EXPECT_FALSE(Visible(kMap));
  launcher->Click("opt_ShowWin", 2);
  EXPECT_TRUE(Visible(kMap));
}

TEST_F(ShowWindows, AServerThatHangsIsNotWaitedForAndObeysLater) {
  StartAndLook();
  Process(kMap).hangs = true;
  const std::uint64_t asked = machine.clock.Age();
  launcher->Click("opt_ShowWin", 2);
  launcher->Click("opt_ShowWin", 0);
  EXPECT_EQ(machine.clock.Age(), asked);
  EXPECT_TRUE(Visible(kMap));
  EXPECT_FALSE(Visible(kLogin));
  Process(kMap).hangs = false;
  launcher->Pass(5s);
  EXPECT_FALSE(Visible(kMap));
}

TEST_F(ShowWindows, AWindowThatTheCrashWatchHasNotSeenYetIsLeftAlone) {
  StartLauncher();
  launcher->Click("bStart", 1);
  machine.recorder.Forget();
  launcher->Click("opt_ShowWin", 1);
  EXPECT_EQ(machine.recorder.CountOf("windows."), 0u);
  launcher->Pass(6s);
  launcher->Click("opt_ShowWin", 1);
  EXPECT_TRUE(Visible(kChar));
}

TEST_F(ShowWindows, EveryComponentCountsForItself) {
  StartAndLook();
  launcher->Click("opt_ShowWin", 0);
  launcher->Click("opt_ShowWin", 2);
  EXPECT_FALSE(Visible(kLogin));
  EXPECT_TRUE(Visible(kChar));
  EXPECT_FALSE(Visible(kMap));
}

TEST_F(ShowWindows, APressWhileNothingRunsCountsAndDoesNothingElse) {
  StartLauncher();
  machine.recorder.Forget();
  launcher->Click("opt_ShowWin", 1);
  EXPECT_EQ(machine.recorder.CountOf("windows."), 0U);
  launcher->Click("bStart", 1);
  launcher->Pass(6s);
  launcher->Click("opt_ShowWin", 1);
  EXPECT_TRUE(Visible(kChar)) << "the press before was the first";
  launcher->Click("opt_ShowWin", 1);
  EXPECT_FALSE(Visible(kChar));
}

TEST_F(ShowWindows, ARestartGoesOnWithTheAlternation) {
  StartAndLook();
  launcher->Click("opt_ShowWin", 2);
  Crash(kMap);
  launcher->Pass(16s);
  ASSERT_FALSE(Visible(kMap));
  launcher->Click("opt_ShowWin", 2);
  EXPECT_TRUE(Visible(kMap));
}

TEST_F(ShowWindows, AWindowThatDiedBetweenTickAndPressIsHarmless) {
  StartAndLook();
  Crash(kChar);
  launcher->Click("opt_ShowWin", 1);
  launcher->Click("opt_ShowWin", 1);
  EXPECT_FALSE(launcher->Ended());
  EXPECT_TRUE(machine.boxes.Shown().empty());
  launcher->Pass(30s);
  EXPECT_EQ(machine.processes.Named(kChar).size(), 1U);
}

}  // namespace
}  // namespace tarvo
