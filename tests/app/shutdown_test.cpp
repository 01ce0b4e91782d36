#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Shutdown : public LauncherStory {
 protected:
  /// The calls by which the launcher takes its leave, the icon's, a save and networking's end; a
  /// save is told once, however many values it writes.
  std::string Farewell() const {
    std::string calls;
    std::string last;
    for (const std::string& call : machine.recorder.Calls()) {
      const std::string name = call.substr(0, call.find('('));
      const bool tells = name.starts_with("tray.") || name == "registry.write" ||
                         name == "sockets.stop" || name == "files.append";
      if (!tells || name == last) continue;
      calls += name + "\n";
      last = name;
    }
    return calls;
  }

  static constexpr char kUnloadQuestion[] =
      "This option will stop the launcher without kill the server, is usefull to update the "
      "launcher version.\r\n"
      "When you start the launcher again, press Start and the components will be under control "
      "again.\n";
};

TEST_F(Shutdown, ACloseSavesEndsNetworkingAndEnds) {
  StartLauncher();
  launcher->Type("TTO", 0, "33");
  launcher->Check("chkAK", 0);
  launcher->Type("TTO", 0, "33");
  launcher->Close();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 0);
  EXPECT_EQ(machine.Setting("LoginTimeout"), "33");
  EXPECT_EQ(machine.network.Stops(), 1);
  EXPECT_EQ(machine.boxes.NewTexts(), "");
}

TEST_F(Shutdown, ACloseTakesTheIconAwaySavesAndThenEndsNetworking) {
  StartLauncher();
  machine.recorder.Forget();
  launcher->Close();
  EXPECT_EQ(Farewell(), "tray.delete\ntray.closeWindow\nregistry.write\nsockets.stop\n");
}

TEST_F(Shutdown, ACloseIsRefusedWhileAServerIsKnownToRun) {
  for (std::size_t button = 0; button < 3; ++button) {
    StartLauncher();
    launcher->Click("bStart", button);
    machine.recorder.Forget();
    launcher->Close();
    EXPECT_FALSE(launcher->Ended()) << button;
    EXPECT_EQ(machine.boxes.NewTexts(), "Please, stop servers before close this application\n");
    EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Exclamation);
    EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
    EXPECT_EQ(machine.network.Stops(), static_cast<int>(button));
    launcher->Click("bStart", button);
    launcher->Close();
    EXPECT_TRUE(launcher->Ended()) << button;
  }
}

TEST_F(Shutdown, AProcessIdMayBeOfAnySize) {
  machine.processes.NumberFrom(0x80000000u);
  StartWithAllServers();
  launcher->Close();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, stop servers before close this application\n");
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(Shutdown, RequestsThatComeUnderTheRefusalsBoxOpenNoOther) {
  StartWithAllServers();
  machine.boxes.whileNextIsOpen = [this] {
    for (int i = 0; i < 3; ++i) launcher->Close();
  };
  launcher->Close();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, stop servers before close this application\n");
  launcher->Close();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, stop servers before close this application\n");
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(Shutdown, ACloseUnderTheRefusalsBoxIsHeardOnceNoServerRuns) {
  StartWithAllServers();
  machine.boxes.whileNextIsOpen = [this] {
    launcher->Click("bStart", 4);
    launcher->Close();
  };
  launcher->Close();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, stop servers before close this application\n");
  EXPECT_TRUE(launcher->Ended());
}

TEST_F(Shutdown, TheWatchesGoOnUnderTheRefusalsBox) {
  StartWithAllServers();
  machine.boxes.whileNextIsOpen = [this] {
    Crash(kMap);
    launcher->Pass(5s);
  };
  launcher->Close();
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(Shutdown, UnloadingAsksWithNoAsTheDefaultAndNoChangesNothing) {
  StartWithAllServers();
  machine.recorder.Forget();
  launcher->Click("Command1");
  EXPECT_EQ(machine.boxes.NewTexts(), kUnloadQuestion);
  const MessageBoxRequest& box = machine.boxes.Shown().back();
  EXPECT_EQ(box.buttons, BoxButtons::YesNo);
  EXPECT_EQ(box.icon, BoxIcon::Exclamation);
  EXPECT_TRUE(box.noIsDefault);
  EXPECT_FALSE(launcher->Ended());
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
}

TEST_F(Shutdown, UnloadingSavesEndsAndTouchesNoServer) {
  StartWithAllServers();
  launcher->Check("WLog", 0);
  const ProcessId map = Process(kMap).id;
  machine.recorder.Forget();
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  EXPECT_EQ(launcher->Log(), "10:00:11 2 Launcher unloaded from memory! (server still running)\n");
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 0);
  EXPECT_EQ(machine.Setting("WriteLog"), "1");
  EXPECT_EQ(machine.recorder.CountOf("processes."), 0u);
  EXPECT_EQ(Process(kMap).id, map);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
  EXPECT_EQ(machine.network.Stops(), 0);
  for (ComponentKind kind : kComponents) EXPECT_EQ(launcher->Of(kind).ProcessId, 0u);
}

TEST_F(Shutdown, UnloadingTellsItTakesTheIconAwayForgetsTheServersAndThenSaves) {
  StartWithAllServers();
  launcher->Check("WLog", 0);
  std::string known;
  const auto noteKnown = [&] { known += launcher->Of(ComponentKind::Map).ProcessId ? "1" : "0"; };
  machine.recorder.Forget();
  machine.recorder.beforeEach = [&] {
    const std::string& call = machine.recorder.Calls().back();
    if (call.starts_with("tray.closeWindow") || call.starts_with("registry.write")) noteKnown();
  };
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  EXPECT_EQ(Farewell(), "files.append\ntray.delete\ntray.closeWindow\nregistry.write\n");
  EXPECT_EQ(known.substr(0, 2), "10") << "known at the icon's end, forgotten at the save";
}

TEST_F(Shutdown, NoChangeIsSavedBeforeTheClose) {
  StartLauncher();
  machine.recorder.Forget();
  for (std::size_t i = 0; i < 3; ++i) {
    launcher->Choose("Exes", i, "tarvo-launcher.exe");
    launcher->Choose("Prior", i, "V-Low");
    launcher->Click("chkAutoStart", i);
    launcher->Click("chkAK", i);
    launcher->Type("TTO", i, "44");
    launcher->Click("opt_Rnd", i);
  }
  launcher->Click("chkAK", 3);
  launcher->Click("WLog");
  launcher->Choose("LogH", 0, "Only Errors");
  launcher->Click("SMinimized");
  launcher->Window().MovedTo({10, 20, 900, 700});
  launcher->Window().SetState(WindowState::Minimized);
  launcher->Pass(1min);
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
  launcher->Close();
  EXPECT_GT(machine.recorder.CountOf("registry.write"), 20u);
}

TEST_F(Shutdown, TheSystemsEndSavesAndEndsNetworkingThoughServersRun) {
  StartWithAllServers();
  launcher->Check("WLog", 0);
  launcher->Window().EndSession();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 0);
  EXPECT_EQ(machine.Setting("WriteLog"), "1");
  EXPECT_EQ(machine.network.Stops(), 1);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(Shutdown, ANewLauncherTakesUnloadedServersUnderControlAndSeesTheirCrash) {
  StartWithAllServers();
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  StartLauncher();
  EXPECT_EQ(launcher->CountInLog("Attention!, server components found in memory."), 1u);
  launcher->ForgetLog();
  launcher->Click("bStart", 3);
  EXPECT_EQ(launcher->NewLog(),
            "10:00:11 0 [login-server.exe] was found in memory!\n"
            "10:00:11 0 Login Server under control! [Low Priority]\n"
            "10:00:11 0 Listening Login Server\n"
            "10:00:11 0 [char-server.exe] was found in memory!\n"
            "10:00:11 0 Char Server under control [Norm Priority]\n"
            "10:00:11 0 Listening Char Server\n"
            "10:00:11 0 [map-server.exe] was found in memory!\n"
            "10:00:11 0 Map Server under control [High Priority]\n"
            "10:00:11 0 Listening Map Server\n");
  Crash(kChar);
  launcher->Pass(5s);
  EXPECT_EQ(launcher->NewLog(),
            "10:00:16 2 Char Server crashed, restarting...\n"
            "10:00:16 0 Char Server Started [Norm Priority]\n");
}

TEST_F(Shutdown, AFaultUnderTheUnloadQuestionEndsTheProgramOnce) {
  StartWithAllServers();
  machine.boxes.whileNextIsOpen = [this] {
    machine.processes.LoseExecutables();
    Crash(kMap);
    launcher->Pass(5s);
  };
  machine.boxes.AnswerNext(Answer::Ok);
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  EXPECT_EQ(launcher->ExitCode(), 1);
  EXPECT_EQ(launcher->CountInLog("Launcher unloaded from memory! (server still running)"), 0u);
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
}

TEST_F(Shutdown, AFatalFaultLetsNothingTickUnderItsBoxAndAfterIt) {
  StartWithAllServers();
  machine.processes.LoseExecutables();
  Crash(kMap);
  std::size_t calls = 0;
  machine.boxes.whileNextIsOpen = [&] {
    calls = machine.recorder.Count();
    launcher->Pass(1min);
    launcher->Click("bStart", 4);
    EXPECT_EQ(machine.recorder.Count(), calls);
  };
  launcher->Pass(1min);
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\srv\\map-server.exe\n");
  EXPECT_EQ(launcher->ExitCode(), 1);
  launcher->Pass(1min);
  EXPECT_EQ(machine.recorder.Count(), calls);
  EXPECT_EQ(machine.network.Stops(), 0);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(Shutdown, EverySettingOfTheOperatorComesBackByteForByte) {
  StartLauncher();
  launcher->Choose("Exes", 0, kMap);
  launcher->Choose("Exes", 2, kLogin);
  for (std::size_t i = 0; i < 3; ++i) {
    launcher->Choose("Prior", i, i == 1 ? "V-High" : "V-Low");
    launcher->Check("chkAutoStart", i, i == 0);
    launcher->Check("chkAK", i);
    launcher->Type("TTO", i, std::to_string(40 + i));
  }
  launcher->Check("chkAK", 3);
  launcher->Check("WLog", 0);
  launcher->Choose("LogH", 0, "Errors & Warnings");
  launcher->Check("SMinimized", 0);
  launcher->Click("opt_Rnd", 2);
  launcher->Click("optMode", 1);
  launcher->Close();
  const auto saved = machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey());
  EXPECT_EQ(saved.at("LoginExe"), kMap);
  EXPECT_EQ(saved.at("CharPri"), "4");
  EXPECT_EQ(saved.at("MapTimeout"), "42");
  EXPECT_EQ(saved.at("WriteMode"), "2");
  EXPECT_EQ(saved.at("UpdateMode"), "1");
  EXPECT_EQ(saved.at("AutoRandomize"), "2");
  machine.SetSetting("LoginAutoStart", "0");  // So that it can be closed again.
  StartLauncher();
  EXPECT_EQ(launcher->TheForm().servers.LogH.Text(), "Errors & Warnings");
  EXPECT_EQ(launcher->Window().State(), WindowState::Minimized);
  launcher->Check("chkAutoStart", 0);
  launcher->Close();
  EXPECT_EQ(machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey()), saved);
}

TEST_F(Shutdown, WithoutAdministratorsRightsSettingsAreKeptForTheOperator) {
  machine.registry.Deny(Hive::LocalMachine);
  StartLauncher();
  launcher->Check("chkAK", 1);
  launcher->Type("TTO", 1, "99");
  launcher->Close();
  EXPECT_EQ(machine.Setting("CharTimeout"), "(none)");
  StartLauncher();
  EXPECT_EQ(launcher->TheForm().servers.TTO[ComponentKind::Char].Text(), "99");
  EXPECT_TRUE(launcher->TheForm().servers.chkAK[1].Checked());
}

TEST_F(Shutdown, ALogFolderThatCannotBeWrittenStopsNothing) {
  StartLauncher();
  machine.files.RefuseAppends(true);
  launcher->Check("WLog", 0);
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  Crash(kMap);
  launcher->Pass(5s);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
  EXPECT_FALSE(machine.files.Has("C:\\srv\\20261121.log"));
  EXPECT_GT(machine.recorder.CountOf("files.append(C:\\srv\\20261121.log)"), 5u);
}

}  // namespace
}  // namespace tarvo
