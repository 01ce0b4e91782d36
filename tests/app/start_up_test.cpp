#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class StartUp : public LauncherStory {
 protected:
  int Page() { return launcher->TheForm().frame.SSTab1.Page(); }
  /// The launcher ended with this code before its window was seen, and saved nothing.
  void ExpectEndedUnseen(int exitCode) {
    EXPECT_TRUE(launcher->Ended());
    EXPECT_EQ(launcher->ExitCode(), exitCode);
    EXPECT_FALSE(launcher->Window().Visible());
    EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
    EXPECT_EQ(machine.network.Stops(), 0);
    EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Critical);
    EXPECT_EQ(machine.boxes.Shown().back().buttons, BoxButtons::Ok);
    EXPECT_EQ(launcher->Ticks(), 0u);
    launcher->Click("bStart", 3);
    launcher->Pass(1min);
    EXPECT_EQ(launcher->Ticks(), 0u);
    EXPECT_EQ(machine.processes.Launches(), 0u);
  }
};

TEST(FirstRun, HasEveryDefaultAndTellsVersionEndpointsAndReady) {
  SimMachine machine;
  Launcher launcher(machine);
  launcher.Start();
  EXPECT_EQ(launcher.Log(),
            "10:00:00 0 Tarvo Launcher v.1.1.0\n"
            "10:00:00 0 Login Server: 127.0.0.1:6900\n"
            "10:00:00 0 Char Server: 127.0.0.1:6121\n"
            "10:00:00 0 Map Server: 127.0.0.1:5121\n"
            "10:00:00 0 Launcher Ready!\n");
  EXPECT_EQ(launcher.Window().Title(), "[Northwind] - Tarvo Launcher");
  EXPECT_TRUE(launcher.Window().Visible());
  const ServersPage& servers = launcher.TheForm().servers;
  EXPECT_EQ(servers.Exes[ComponentKind::Login].Text(), kLogin);
  EXPECT_EQ(servers.Exes[ComponentKind::Char].Text(), kChar);
  EXPECT_EQ(servers.Exes[ComponentKind::Map].Text(), kMap);
  EXPECT_EQ(servers.Prior[ComponentKind::Map].Text(), "High");
  EXPECT_EQ(servers.TTO[ComponentKind::Char].Text(), "300");
  EXPECT_TRUE(launcher.TheForm().randomizer.opt_Rnd[0].Selected());
  EXPECT_EQ(launcher.TheForm().frame.SSTab1.Page(), 1);
  EXPECT_EQ(machine.network.StartedVersion(), 0x0202);
  EXPECT_TRUE(machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey()).empty());
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(StartUp, TheFirstStepsHaveTheirOrder) {
  StartLauncher();
  std::string steps;
  for (const std::string& call : machine.recorder.Calls()) {
    if (call == "registry.query(CharExe)") break;
    // The icon and the window's own place have no fixed turn among these.
    if (call.starts_with("tray.") || call == "registry.query(WindowPlace)") continue;
    steps += call + "\n";
  }
  EXPECT_EQ(steps,
            "processes.turnErrorDialogsOff()\n"
            "workingFolder.moveInto(C:\\srv\\)\n"
            "lock.acquire()\n"
            "registry.query(Winsock)\n"
            "registry.query(Winsock)\n"
            "sockets.start(514)\n"
            "files.exists(C:\\srv\\conf\\login_athena.conf)\n"
            "files.read(C:\\srv\\conf\\char_athena.conf)\n"
            "files.read(C:\\srv\\conf\\map_athena.conf)\n"
            "files.list(C:\\srv)\n"
            "registry.query(LoginExe)\n"
            "registry.query(LoginExe)\n");
}

TEST_F(StartUp, HostsAreToldAsTheyStandAndPortsInPlainDecimal) {
  machine.PutConf("C:\\srv", "login_ip: 10.0.0.1 \r\nlogin_port: -5\r\nchar_port: &HFF\r\n", "");
  StartLauncher();
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 Tarvo Launcher v.1.1.0\n"
            "10:00:00 0 Login Server:  10.0.0.1 :-5\n"
            "10:00:00 0 Char Server: 127.0.0.1:255\n"
            "10:00:00 0 Map Server: 127.0.0.1:0\n"
            "10:00:00 0 Launcher Ready!\n");
  EXPECT_EQ(launcher->Window().Title(), "[] - Tarvo Launcher");
}

TEST_F(StartUp, OnlyAnUnusualCheckIntervalIsTold) {
  machine.SetSetting("LoginChkInterval", "15000");
  machine.SetSetting("CharChkInterval", "10000");
  machine.SetSetting("MapChkInterval", "1500");
  StartLauncher();
  EXPECT_NE(launcher->Log().find("10:00:00 0 Map Server: 127.0.0.1:5121\n"
                                 "10:00:00 1 Login Check Interval: 15 seconds.\n"
                                 "10:00:00 1 Map Check Interval: 1.5 seconds.\n"
                                 "10:00:00 0 Launcher Ready!\n"),
            std::string::npos)
      << launcher->Log();
}

TEST_F(StartUp, ACheckIntervalIsToldToTheMillisecond) {
  machine.SetSetting("LoginChkInterval", "10001");
  machine.SetSetting("CharChkInterval", "12345");
  machine.SetSetting("MapChkInterval", "9999");
  StartLauncher();
  EXPECT_NE(launcher->Log().find("10:00:00 1 Login Check Interval: 10.001 seconds.\n"
                                 "10:00:00 1 Char Check Interval: 12.345 seconds.\n"
                                 "10:00:00 1 Map Check Interval: 9.999 seconds.\n"),
            std::string::npos)
      << launcher->Log();
}

TEST_F(StartUp, TheWinsockVersionIsReadFromAboveAllRoots) {
  const struct {
    const char* text;
    int version;
  } cases[] = {{"&H101", 0x0101}, {"514", 514}, {" &h0202 ", 0x0202}};
  for (const auto& c : cases) {
    machine.registry.Put(Hive::LocalMachine, "Software\\TarvoLab\\Servers", "Winsock",
                         {kRegistryText, c.text});
    StartLauncher();
    EXPECT_EQ(machine.network.StartedVersion(), c.version) << c.text;
  }
}

TEST_F(StartUp, AWinsockVersionThatIsNoNumberIsFatal) {
  machine.registry.Put(Hive::LocalMachine, "Software\\TarvoLab\\Servers", "Winsock",
                       {kRegistryText, "two"});
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(), "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nWinsock\n");
  ExpectEndedUnseen(1);
}

TEST_F(StartUp, WithoutNetworkingTheReasonIsShownAndTheProgramEnds) {
  machine.network.FailStart(10091);
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(), "Network subsystem is unavailable.\n");
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(machine.recorder.CountOf("files."), 0u);
  ExpectEndedUnseen(2);
}

TEST_F(StartUp, OutsideAServerRootNothingIsSavedOrSeen) {
  machine.files.Remove("C:\\srv\\conf\\login_athena.conf");
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Please, copy and start this application inside your eAthena / Freya Server Root!\n");
  ExpectEndedUnseen(2);
}

TEST_F(StartUp, AMissingConfIsToldAndNothingIsSavedOrSeen) {
  for (const char* name : {"char_athena.conf", "map_athena.conf"}) {
    const std::string path = std::string("C:\\srv\\conf\\") + name;
    const std::string text = machine.files.TextOf(path);
    machine.files.Remove(path);
    StartLauncher();
    EXPECT_EQ(machine.boxes.NewTexts(),
              std::string("C:\\srv\\") + name + " file can't be loaded\n");
    ExpectEndedUnseen(2);
    machine.files.Put(path, text);
  }
}

TEST_F(StartUp, NothingTicksUnderTheBoxOfARefusedStart) {
  machine.files.Remove("C:\\srv\\conf\\map_athena.conf");
  std::size_t calls = 0;
  machine.boxes.whileNextIsOpen = [&] {
    EXPECT_FALSE(launcher->Ended());
    calls = machine.recorder.Count();
    launcher->Pass(1min);
  };
  StartLauncher();
  EXPECT_EQ(machine.recorder.Count(), calls);
  ExpectEndedUnseen(2);
}

TEST_F(StartUp, APortThatIsNoNumberIsFatalAndTellsItsLine) {
  machine.PutConf("C:\\srv", "login_port: 6900 // main\r\n", "");
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nlogin_port: 6900 // main\n");
  ExpectEndedUnseen(1);
}

TEST_F(StartUp, ASettingThatCannotBeConvertedIsFatalAndNamesItself) {
  const struct {
    const char* name;
    const char* text;
    const char* fault;
  } cases[] = {
      {"LoginPri", "Low", "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nLoginPri\n"},
      {"LoginPri", "7", "Run-time error '380':\r\n\r\nInvalid property value\r\n\r\nLoginPri\n"},
      {"DayRndCnt", "99999999999", "Run-time error '6':\r\n\r\nOverflow\r\n\r\nDayRndCnt\n"},
      {"LastRandomize", "never",
       "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nLastRandomize\n"},
      {"UpdateMode", "x", "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nUpdateMode\n"}};
  for (const auto& c : cases) {
    machine.SetSetting(c.name, c.text);
    StartLauncher();
    EXPECT_EQ(machine.boxes.NewTexts(), c.fault) << c.name;
    ExpectEndedUnseen(1);
    machine.registry.Erase(Hive::LocalMachine, machine.SettingsKey(), c.name);
  }
}

TEST_F(StartUp, ALoadedAutokillTimeIsCleanedAsATypedOneIs) {
  machine.SetSetting("LoginTimeout", "25 sec");
  machine.SetSetting("CharTimeout", "");
  machine.SetSetting("MapTimeout", std::string(61440, 'x'));
  StartLauncher();
  const auto& TTO = launcher->TheForm().servers.TTO;
  EXPECT_EQ(TTO[ComponentKind::Login].Text(), "25");
  EXPECT_EQ(TTO[ComponentKind::Char].Text(), "");
  EXPECT_EQ(TTO[ComponentKind::Map].Text(), "0");
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
}

TEST_F(StartUp, AllThreeAutoStartsAreOneStartAll) {
  for (const char* name : {"LoginAutoStart", "CharAutoStart", "MapAutoStart"}) {
    machine.SetSetting(name, "1");
  }
  StartLauncher();
  EXPECT_TRUE(
      launcher->Log().ends_with("10:00:00 0 Launcher Ready!\n"
                                "10:00:00 0 Login Server Started! [Low Priority]\n"
                                "10:00:00 0 Char Server Started [Norm Priority]\n"
                                "10:00:00 0 Map Server Started [High Priority]\n"))
      << launcher->Log();
  EXPECT_EQ(Page(), 0);
}

TEST_F(StartUp, AllThreeAutoStartsAreRefusedByOneBox) {
  for (const char* name : {"LoginAutoStart", "CharAutoStart", "MapAutoStart"}) {
    machine.SetSetting(name, "1");
  }
  machine.SetSetting("CharExe", "nothing such");
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, select the right servers from the list\n");
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(StartUp, TitleAndTipNameTheServerBeforeAnyIsStarted) {
  machine.SetSetting("LoginAutoStart", "1");
  const std::string title = "[Northwind] - Tarvo Launcher";
  launcher = std::make_unique<Launcher>(machine);
  int looks = 0;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("processes.snapshot(")) return;
    ++looks;
    EXPECT_EQ(launcher->Window().Title(), title);
    EXPECT_EQ(machine.recorder.CountOf("tray.modify(" + title + ")"), 1u);
  };
  launcher->Start();
  machine.recorder.beforeEach = nullptr;
  EXPECT_GT(looks, 0);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(StartUp, TwoAutoStartsStartOneByOne) {
  machine.SetSetting("LoginAutoStart", "1");
  machine.SetSetting("MapAutoStart", "1");
  StartLauncher();
  EXPECT_TRUE(
      launcher->Log().ends_with("10:00:00 0 Launcher Ready!\n"
                                "10:00:00 0 Login Server Started! [Low Priority]\n"
                                "10:00:00 0 Map Server Started [High Priority]\n"));
  EXPECT_TRUE(machine.processes.Named(kChar).empty());
  EXPECT_EQ(Page(), 0);
}

TEST_F(StartUp, RefusedAutoStartsAskOnceForEachAndLeaveTheLauncherReady) {
  machine.SetSetting("LoginAutoStart", "1");
  machine.SetSetting("MapAutoStart", "1");
  machine.SetSetting("CharExe", "nothing such");
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Please, select the right servers from the list\n"
            "Please, select the right servers from the list\n");
  EXPECT_FALSE(launcher->Ended());
  EXPECT_TRUE(launcher->Window().Visible());
  EXPECT_FALSE(launcher->TheForm().randomizer.cmdParam.Items().empty());
  EXPECT_EQ(launcher->TheForm().randomizer.lstDay.ListIndex(), 0);
}

TEST_F(StartUp, ACloseUnderARefusedAutoStartsBoxIsTheEndOfTheStart) {
  machine.SetSetting("LoginAutoStart", "1");
  machine.SetSetting("MapAutoStart", "1");
  machine.SetSetting("CharExe", "nothing such");
  machine.boxes.whileNextIsOpen = [this] { launcher->Close(); };
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, select the right servers from the list\n");
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 0);
  EXPECT_FALSE(launcher->Window().Visible());
  EXPECT_EQ(machine.network.Stops(), 1);
  EXPECT_EQ(machine.recorder.CountOf("files.read(C:\\srv\\conf\\battle_athena.conf)"), 0u);
  EXPECT_EQ(machine.recorder.CountOf("lock.publish()"), 0u);
}

TEST_F(StartUp, AnAutoStartWhoseExecutableIsGoneIsFatalAfterReady) {
  machine.SetSetting("MapAutoStart", "1");
  machine.processes.LoseExecutables();
  StartLauncher();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\srv\\map-server.exe\n");
  EXPECT_EQ(launcher->CountInLog("Launcher Ready!"), 1u);
  ExpectEndedUnseen(1);
}

TEST_F(StartUp, RunningServersAreToldAndWithAutoStartAdopted) {
  const ProcessId login = machine.processes.StartForeign(kLogin);
  const ProcessId map = machine.processes.StartForeign(kMap);
  machine.SetSetting("LoginAutoStart", "1");
  machine.SetSetting("CharAutoStart", "1");
  StartLauncher();
  EXPECT_TRUE(
      launcher->Log().ends_with("10:00:00 0 Launcher Ready!\n"
                                "10:00:00 1 Attention!, server components found in memory.\n"
                                "10:00:00 0 [login-server.exe] was found in memory!\n"
                                "10:00:00 0 Login Server under control! [Low Priority]\n"
                                "10:00:00 0 Listening Login Server\n"
                                "10:00:00 0 Char Server Started [Norm Priority]\n"))
      << launcher->Log();
  EXPECT_EQ(Process(kLogin).id, login);
  EXPECT_EQ(Process(kMap).id, map);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, 0u);
  EXPECT_EQ(Page(), 0);
}

TEST_F(StartUp, AnyOfTheThreeInMemoryIsTold) {
  for (const char* name : kServers) {
    const ProcessId id = machine.processes.StartForeign(name);
    StartLauncher();
    EXPECT_EQ(launcher->CountInLog("Attention!, server components found in memory."), 1u) << name;
    EXPECT_EQ(Page(), 0) << name;
    machine.processes.Crash(id);
  }
}

TEST_F(StartUp, OnlyWhatIsChosenIsLookedForInMemory) {
  machine.SetSetting("LoginExe", kLogin);
  machine.files.Remove(std::string("C:\\srv\\") + kLogin);
  machine.processes.StartForeign(kLogin);
  StartLauncher();
  EXPECT_EQ(launcher->CountInLog("Attention!, server components found in memory."), 0u);
  EXPECT_EQ(Page(), 1);
}

TEST_F(StartUp, WithoutAutoStartRunningServersAreLeftAloneAndDoNotHinderTheClose) {
  machine.processes.StartForeign(kMap);
  StartLauncher();
  EXPECT_EQ(launcher->CountInLog("Attention!, server components found in memory."), 1u);
  EXPECT_EQ(Page(), 0);
  EXPECT_EQ(machine.recorder.CountOf("processes.priority"), 0u);
  launcher->Close();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(machine.boxes.NewTexts(), "");
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
}

TEST_F(StartUp, ARootWithoutExecutablesReachesReadyAndRefusesToStart) {
  for (const char* name : {kLogin, kChar, kMap, "tarvo-launcher.exe"}) {
    machine.files.Remove(std::string("C:\\srv\\") + name);
  }
  StartLauncher();
  EXPECT_EQ(launcher->CountInLog("Launcher Ready!"), 1u);
  launcher->Click("bStart", 3);
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, select the right servers from the list\n");
}

TEST_F(StartUp, ADrivesRootHasOneBackslash) {
  machine.launcherPath = "C:\\tarvo-launcher.exe";
  machine.PutConf("C:", UsualCharConf(), UsualMapConf());
  for (const char* name : kServers) {
    machine.files.Put(std::string("C:\\") + name, "MZ");
  }
  StartLauncher();
  launcher->Click("bStart", 0);
  EXPECT_EQ(machine.recorder.CountOf("processes.launch(C:\\login-server.exe)"), 1u);
}

TEST_F(StartUp, StartMinimizedIsNeverSeenUntilItIsRestored) {
  machine.SetSetting("StartMinimized", "1");
  StartLauncher();
  EXPECT_EQ(launcher->Window().State(), WindowState::Minimized);
  EXPECT_FALSE(launcher->Window().Visible());
  launcher->Window().SetState(WindowState::Normal);
  EXPECT_TRUE(launcher->Window().Visible());
  launcher->Window().SetState(WindowState::Minimized);
  EXPECT_FALSE(launcher->Window().Visible());
}

TEST_F(StartUp, ASecondLauncherInOneRootShowsTheFirstAndEnds) {
  StartLauncher();
  machine.recorder.Forget();
  Launcher second(machine);
  second.Start(78);
  EXPECT_TRUE(second.Ended());
  EXPECT_EQ(second.ExitCode(), 0);
  EXPECT_FALSE(second.Window().Visible());
  EXPECT_EQ(second.Log(), "");
  EXPECT_EQ(machine.locks.broughtToFront, (std::vector<std::intptr_t>{77}));
  EXPECT_EQ(machine.recorder.CountOf("sockets.") + machine.recorder.CountOf("registry."), 0u);
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(StartUp, ASecondLauncherWhoseFirstCannotBeShownSaysSo) {
  StartLauncher();
  for (auto& [name, window] : machine.locks.held) window = 0;
  Launcher second(machine);
  second.Start();
  EXPECT_EQ(machine.boxes.NewTexts(), "Tarvo Launcher is already running in this server root.\n");
  EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Critical);
  EXPECT_EQ(second.ExitCode(), kExitRefused);
}

// Such a window is found but cannot be shown, and nobody says so: nothing appeared.
TEST_F(StartUp, ASecondLauncherWhoseFirstHasMoreRightsSaysSo) {
  StartLauncher();
  machine.locks.holdersHaveMoreRights = true;
  Launcher second(machine);
  second.Start();
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Tarvo Launcher is already running in this server root.\r\n\r\n"
            "It was started as administrator or by another user, so its window cannot be shown "
            "from here.\n");
  EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Critical);
  EXPECT_EQ(second.ExitCode(), kExitRefused);
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(StartUp, ASecondLauncherDoesNotShowTheWindowOfAStartThatIsBeingRefused) {
  machine.files.Remove("C:\\srv\\conf\\login_athena.conf");
  Launcher second(machine);
  machine.boxes.whileNextIsOpen = [&second] { second.Start(78); };
  StartLauncher();
  EXPECT_TRUE(machine.locks.broughtToFront.empty());
  EXPECT_EQ(second.ExitCode(), 2);
  ExpectEndedUnseen(2);
}

TEST_F(StartUp, LettersOfAnotherCaseAreTheSameRootAndAnotherFolderIsAnother) {
  StartLauncher();
  machine.launcherPath = "c:\\SRV\\Tarvo-Launcher.exe";
  Launcher sameRoot(machine);
  sameRoot.Start();
  EXPECT_TRUE(sameRoot.Ended());
  machine.launcherPath = "C:\\s_rv\\tarvo-launcher.exe";
  machine.PutConf("C:\\s_rv", UsualCharConf(), UsualMapConf());
  Launcher other(machine);
  other.Start();
  EXPECT_FALSE(other.Ended());
}

TEST_F(StartUp, ASecondNameOfTheFolderIsTheSameRoot) {
  StartLauncher();
  machine.PutConf("X:", UsualCharConf(), UsualMapConf());
  machine.launcherPath = "X:\\tarvo-launcher.exe";
  machine.launcherRealFolder = "C:\\srv";
  Launcher sameRoot(machine);
  sameRoot.Start();
  EXPECT_TRUE(sameRoot.Ended());
  EXPECT_EQ(sameRoot.ExitCode(), 0);
  EXPECT_EQ(machine.locks.broughtToFront.size(), 1U);
  // The settings follow the name that the operator gave.
  machine.launcherRealFolder = "C:\\other";
  machine.SetSetting("LoginChkInterval", "15000");
  Launcher other(machine);
  other.Start();
  EXPECT_FALSE(other.Ended());
  EXPECT_NE(other.Log().find("Login Check Interval: 15 seconds."), std::string::npos);
}

TEST_F(StartUp, TwoRootsWithOneDigestShareTheirSettings) {
  for (const char* folder : {"C:\\a\\b", "C:\\a_b"}) {
    machine.PutConf(folder, UsualCharConf(), UsualMapConf());
    for (const char* name : kServers) {
      machine.files.Put(std::string(folder) + "\\" + name, "MZ");
    }
  }
  machine.launcherPath = "C:\\a\\b\\tarvo-launcher.exe";
  StartLauncher();
  launcher->Check("chkAK", 2);
  launcher->Type("TTO", 2, "77");
  launcher->Close();
  machine.launcherPath = "C:\\a_b\\tarvo-launcher.exe";
  StartLauncher();
  EXPECT_EQ(launcher->TheForm().servers.TTO[ComponentKind::Map].Text(), "77");
  EXPECT_TRUE(launcher->TheForm().servers.chkAK[2].Checked());
}

}  // namespace
}  // namespace tarvo
