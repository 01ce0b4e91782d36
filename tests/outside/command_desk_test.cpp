#include "outside/command_desk.h"

#include <gtest/gtest.h>

#include "tests/outside/command_story.h"

namespace tarvo {
namespace {

using CommandDeskTest = CommandStory;

constexpr char kWait[] = "A message box of the launcher waits for its operator: ";

TEST_F(CommandDeskTest, StartAndStopAreTheButtonsOfTheOperator) {
  StartLauncher();
  launcher->ForgetLog();
  EXPECT_EQ(Send({"--start", "char"}), "0: ");
  EXPECT_EQ(launcher->NewLog(), "10:00:00 0 Char Server Started [Norm Priority]\n");
  EXPECT_EQ(Send({"--start", "all"}), "0: ");
  EXPECT_EQ(launcher->NewLog(),
            "10:00:00 0 Login Server Started! [Low Priority]\n"
            "10:00:00 0 Map Server Started [High Priority]\n");
  EXPECT_EQ(Send({"--stop", "login"}), "0: ");
  EXPECT_EQ(launcher->NewLog(), "10:00:00 1 Login Server Stopped!\n");
  EXPECT_EQ(Send({"--stop", "all"}), "0: ");
  EXPECT_EQ(launcher->NewLog(),
            "10:00:00 1 Char Server Stopped!\n"
            "10:00:00 1 Map Server Stopped!\n");
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(CommandDeskTest, WhatIsDoneAlreadyIsDoneAndChangesNothing) {
  StartLauncher();
  Send({"--start", "map"});
  const ProcessId process = Process(kMap).id;
  launcher->ForgetLog();
  EXPECT_EQ(Send({"--start", "map"}), "0: ");
  EXPECT_EQ(Send({"--stop", "char"}), "0: ");
  EXPECT_EQ(Process(kMap).id, process);
  EXPECT_EQ(launcher->NewLog(), "");
}

TEST_F(CommandDeskTest, ARestartStopsWhatIsStartedAndStarts) {
  StartLauncher();
  Send({"--start", "map"});
  const ProcessId before = Process(kMap).id;
  launcher->ForgetLog();
  EXPECT_EQ(Send({"--restart", "map"}), "0: ");
  EXPECT_EQ(launcher->NewLog(),
            "10:00:00 1 Map Server Stopped!\n"
            "10:00:00 0 Map Server Started [High Priority]\n");
  EXPECT_NE(Process(kMap).id, before);
  EXPECT_EQ(Send({"--restart", "login"}), "0: ");
  EXPECT_EQ(launcher->NewLog(), "10:00:00 0 Login Server Started! [Low Priority]\n");
  EXPECT_EQ(Send({"--restart", "all"}), "0: ");
  EXPECT_EQ(launcher->NewLog(),
            "10:00:00 1 Login Server Stopped!\n"
            "10:00:00 1 Map Server Stopped!\n"
            "10:00:00 0 Login Server Started! [Low Priority]\n"
            "10:00:00 0 Char Server Started [Norm Priority]\n"
            "10:00:00 0 Map Server Started [High Priority]\n");
}

TEST_F(CommandDeskTest, ARefusalIsTheBoxesTextAndNoBoxComesUp) {
  machine.SetSetting("CharExe", "nothing such");
  StartLauncher();
  for (const char* command : {"--start", "--stop", "--restart"}) {
    EXPECT_EQ(Send({command, "all"}), "1: Please, select the right servers from the list\n")
        << command;
  }
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(CommandDeskTest, WhatTheLogAloneTellsIsARefusalToo) {
  machine.processes.Program(kMap).launchFault = NeedsElevation();
  StartLauncher();
  const std::string answer = Send({"--start", "map"});
  EXPECT_TRUE(answer.starts_with("1: [map-server.exe] can't be started: ")) << answer;
}

TEST_F(CommandDeskTest, AFaultOfTheCommandIsToldAndEndsTheLauncherAsTheButtonWould) {
  StartLauncher();
  machine.processes.LoseExecutables();
  EXPECT_EQ(Send({"--start", "map"}),
            "1: Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\srv\\map-server.exe\n");
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 1);
}

TEST_F(CommandDeskTest, CloseIsRefusedWhileServersRun) {
  StartLauncher();
  Send({"--start", "login"});
  EXPECT_EQ(Send({"--close"}), "1: Please, stop servers before close this application\n");
  EXPECT_FALSE(launcher->Ended());
  Send({"--stop", "all"});
  EXPECT_EQ(Send({"--close"}), "0: ");
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 0);
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(CommandDeskTest, UnloadIsMeantByWhoSaysSo) {
  StartLauncher();
  Send({"--start", "login"});
  launcher->ForgetLog();
  EXPECT_EQ(Send({"--unload"}), "0: ");
  EXPECT_EQ(launcher->NewLog(),
            "10:00:00 2 Launcher unloaded from memory! (server still running)\n");
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1U);
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(CommandDeskTest, AnUpgradeTellsWhatItsBoxWouldSay) {
  StartLauncher();
  EXPECT_EQ(Send({"--upgrade"}), "1: Please, select the right new components (login, char, map)\n");
  for (ComponentKind kind : kComponents) {
    const std::string path = std::string("C:\\new\\") + WordOf(kind) + ".exe";
    machine.files.Put(path, "MZ new");
    launcher->TheForm().upgrade.nPath[kind].SetText(path);
  }
  Send({"--start", "all"});
  launcher->ForgetLog();
  EXPECT_EQ(Send({"--upgrade"}), "0: Upgrade was succesfull!\n");
  EXPECT_EQ(launcher->CountInLog("Upgrade complete!"), 1U);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1U);
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_EQ(Send({"--upgrade"}),
            "1: FROM and TO components are the same version, upgrade stopped!\n");
}

TEST_F(CommandDeskTest, RandomizeIsTheButton) {
  machine.files.Put("C:\\srv\\randomize.xml",
                    "<?xml version=\"1.0\"?>\r\n<Randomize>\r\n\t<base_exp_rate Min=\"300\" "
                    "Max=\"300\"/>\r\n</Randomize>\r\n");
  StartLauncher();
  EXPECT_EQ(Send({"--randomize"}), "0: ");
  const std::string file = "C:\\srv\\conf\\battle_athena.conf";
  EXPECT_NE(machine.files.TextOf(file).find("base_exp_rate: 300"), std::string::npos);
  machine.files.Remove(file);
  EXPECT_EQ(Send({"--randomize"}), "1: Randomizer Error: " + file + " file can't be loaded\n");
}

TEST_F(CommandDeskTest, TheStateUnderABoxIsThatOfTheMoment) {
  StartWithAllServers();
  std::string state;
  machine.boxes.whileNextIsOpen = [&] {
    Crash(kMap);
    launcher->Pass(std::chrono::seconds(20));
    EXPECT_EQ(Send({"--wait", "listening", "map", "0"}), "0: ");
    Crash(kMap);
    launcher->Pass(std::chrono::seconds(6));
    EXPECT_EQ(Send({"--wait", "listening", "map", "0"}), "4: ");
    state = Send({"--state", "json"});
  };
  launcher->Close();
  EXPECT_NE(state.find("\"crash\":2,"), std::string::npos) << state;
}

TEST_F(CommandDeskTest, WhileABoxIsOpenOnlyTheStateIsTold) {
  StartLauncher();
  Send({"--start", "login"});
  std::vector<std::string> answers;
  machine.boxes.whileNextIsOpen = [&] {
    for (const char* command : {"--randomize", "--close", "--unload", "--upgrade"}) {
      answers.push_back(Send({command}));
    }
    answers.push_back(Send({"--stop", "login"}));
    answers.push_back(Send({"--wait", "listening", "login", "0"}));
    answers.push_back(Send({"--state"}));
  };
  launcher->Close();
  const std::string refusal =
      std::string("1: ") + kWait + "Please, stop servers before close this application\n";
  ASSERT_EQ(answers.size(), 7U);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(answers[i], refusal) << i;
  EXPECT_EQ(answers[5], "4: ");
  EXPECT_TRUE(answers[6].ends_with(
      "Message box open: Please, stop servers before close this application\n"))
      << answers[6];
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1U);
}

TEST_F(CommandDeskTest, UnderAnotherDialogACommandIsRefused) {
  StartLauncher();
  std::string answer;
  launcher->TheProgram().Dispatch().Run([&] { answer = Send({"--start", "login"}); });
  EXPECT_EQ(answer, "1: A dialog of the launcher waits for its operator.\n");
  EXPECT_TRUE(machine.processes.Named(kLogin).empty());
}

TEST_F(CommandDeskTest, UnderTheBoxOfAFaultEvenTheStateIsRefused) {
  machine.SetSetting("MapTimeout", "10");
  StartLauncher();
  machine.processes.LoseExecutables();
  std::string answer;
  machine.boxes.whileNextIsOpen = [&] { answer = Send({"--state"}); };
  launcher->Click("bStart", 2);
  EXPECT_EQ(answer,
            "1: Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\srv\\map-server.exe\n");
}

TEST_F(CommandDeskTest, WhileTheSessionIsEndingNothingIsStarted) {
  StartLauncher();
  launcher->AskForEndOfSession();
  EXPECT_EQ(Send({"--start", "all"}), "1: The operator's session is ending.\n");
  EXPECT_TRUE(Send({"--state"}).starts_with("0: "));
  launcher->CallOffEndOfSession();
  EXPECT_EQ(Send({"--start", "all"}), "0: ");
}

TEST_F(CommandDeskTest, AProgramWithLessRightsMayOnlyAsk) {
  StartLauncher();
  machine.answerLines.callersHaveLessRights = true;
  const std::string refusal = Send({"--start", "all"});
  EXPECT_TRUE(refusal.starts_with("1: The launcher runs with more rights than this program"));
  EXPECT_TRUE(Send({"--state", "json"}).starts_with("0: {"));
  EXPECT_EQ(Send({"--wait", "stopped", "all", "0"}), "0: ");
  EXPECT_TRUE(machine.processes.Named(kLogin).empty());
}

TEST_F(CommandDeskTest, ForeignMessagesHaveNoEffect) {
  StartLauncher();
  machine.recorder.Forget();
  const std::string whole = "TarvoCommand 1 --start all";
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(SendRecord(whole.substr(0, size)), "nothing") << size;
  }
  for (const char* record :
       {"TarvoCommand 2 --start all", "TarvoCommand 1  --start all", "TarvoCommand 1 --start all ",
        "TarvoCommand 1 --start all\n", "tarvoCommand 1 --start all", "TarvoCommand 1 --help",
        "TarvoCommand 1 --check", "TarvoCommand 1 --state", "TarvoCommand 1 --wait stopped all 01",
        "TarvoCommand 1 --resume none"}) {
    EXPECT_EQ(SendRecord(record), "nothing") << record;
  }
  EXPECT_EQ(SendRecord(std::string(1000, 'x')), "nothing");
  EXPECT_EQ(machine.recorder.CountOf("processes."), 0U);
  EXPECT_EQ(machine.recorder.CountOf("lines.open"), 0U);
}

TEST_F(CommandDeskTest, ACommandFromNobodyHasNoEffect) {
  StartLauncher();
  launcher->Window().Receive(std::string(kAddressLength, 'f') + "TarvoCommand 1 --start all");
  EXPECT_TRUE(machine.processes.Named(kLogin).empty());
}

TEST_F(CommandDeskTest, AWaitHoldsWhenAllThatAreNamedDo) {
  machine.SetSetting("MapAutoKillEnabled", "1");
  StartLauncher();
  EXPECT_EQ(Send({"--wait", "stopped", "all", "0"}), "0: ");
  EXPECT_EQ(Send({"--wait", "listening", "map", "0"}), "4: ");
  Send({"--start", "all"});
  EXPECT_EQ(Send({"--wait", "stopped", "map", "0"}), "4: ");
  launcher->Pass(std::chrono::seconds(4));
  EXPECT_EQ(Send({"--wait", "listening", "login", "0"}), "0: ");
  EXPECT_EQ(Send({"--wait", "listening", "all", "0"}), "4: ");
  launcher->Pass(std::chrono::seconds(7));
  EXPECT_EQ(Send({"--wait", "listening", "all", "0"}), "0: ");
}

TEST_F(CommandDeskTest, ABoxAfterACommandComesUpAgain) {
  StartLauncher();
  Send({"--start", "login"});
  Send({"--close"});
  launcher->Close();
  EXPECT_EQ(machine.boxes.NewTexts(), "Please, stop servers before close this application\n");
}

}  // namespace
}  // namespace tarvo
