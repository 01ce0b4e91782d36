#include <gtest/gtest.h>

#include <algorithm>

#include "app/check_up_command.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class CheckUpStory : public LauncherStory {
 protected:
  CheckUpStory() {
    for (const char* name : {"Login", "Char", "Map"}) {
      machine.SetSetting(std::string(name) + "AutoKillEnabled", "1");
    }
  }

  /// Conf files with bare line feeds.
  void PutBareConf() {
    std::string text = UsualMapConf();
    std::erase(text, '\r');
    machine.files.Put(kConf, text);
  }

  std::string Caption() { return launcher->TheForm().servers.cmdCheckUp.Caption(); }
  CheckUpView& View() { return launcher->TheForm().checkUp; }
  std::size_t Writes() {
    std::size_t count = 0;
    for (const char* call :
         {"files.replace", "files.append", "registry.write", "registry.erase", "copies.copy",
          "copies.remove", "copies.makeFolder", "processes.end", "processes.launch",
          "processes.priority", "windows.show", "sockets.connect", "eventLog", "box"}) {
      count += machine.recorder.CountOf(call);
    }
    return count;
  }

  static constexpr char kConf[] = "C:\\srv\\conf\\map_athena.conf";
};

TEST_F(CheckUpStory, NothingHappensByItselfBeforeTheWindowIsComplete) {
  PutBareConf();
  StartLauncher();
  launcher->Pass(seconds(60));
  EXPECT_EQ(Caption(), "Check-up...");
  EXPECT_EQ(machine.recorder.CountOf("inspection."), 0u);
}

TEST_F(CheckUpStory, ByItselfItReadsOnlyAndTheButtonBearsTheNumber) {
  PutBareConf();
  StartLauncher();
  launcher->ForgetLog();
  machine.recorder.Forget();
  launcher->CompleteWindow();
  EXPECT_EQ(machine.recorder.CountOf("inspection."), 0u);
  launcher->Pass(seconds(10));
  EXPECT_EQ(Caption(), "Check-up (3)...");
  EXPECT_EQ(Writes(), 0u);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_FALSE(View().window.IsOpen());
  machine.recorder.Forget();
  launcher->Pass(seconds(600));
  EXPECT_EQ(machine.recorder.CountOf("inspection."), 0u) << "it runs once";
}

TEST_F(CheckUpStory, NotesAloneLeaveTheButtonAsItIs) {
  machine.SetSetting("MapAutoKillEnabled", "0");
  machine.SetSetting("CharAutoKillEnabled", "0");
  machine.SetSetting("LoginAutoKillEnabled", "0");
  StartLauncher();
  launcher->CompleteWindow();
  launcher->Pass(seconds(10));
  EXPECT_EQ(Caption(), "Check-up...");
  EXPECT_EQ(View().lstCheck.Items().size(), 3u);
}

TEST_F(CheckUpStory, ItWaitsWhileAComponentStarts) {
  StartLauncher();
  launcher->CompleteWindow();
  launcher->Click("bStart", 2);
  ASSERT_TRUE(launcher->TheForm().timers.Preparation[ComponentKind::Map].Enabled());
  launcher->Pass(milliseconds(9900));
  EXPECT_EQ(machine.recorder.CountOf("inspection."), 0u);
  launcher->Pass(seconds(10));
  EXPECT_GT(machine.recorder.CountOf("inspection."), 0u);
}

TEST_F(CheckUpStory, NoTickOfItTakesLongerThanItsWaits) {
  machine.PutConf("C:\\srv", UsualCharConf() + "login_ip: a.example\r\nchar_ip: b.example\r\n",
                  UsualMapConf() + "map_ip: c.example\r\n");
  for (const char* name : {"Login", "Char", "Map"}) {
    machine.files.Put(std::string("Z:\\") + name, "x");
    machine.SetSetting(std::string(name) + "From", std::string("Z:\\") + name);
  }
  machine.inspection.Silence("Z:\\");
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  StartLauncher();
  launcher->CompleteWindow();
  std::uint64_t longest = 0;
  for (int i = 0; i < 200; ++i) {
    const auto wait = launcher->TheProgram().TheTimers().UntilNext();
    machine.clock.Advance(*wait);
    const std::uint64_t begun = machine.clock.Age();
    launcher->TheProgram().TheTimers().RunNext([](const auto& tick) { tick(); });
    longest = std::max(longest, machine.clock.Age() - begun);
  }
  EXPECT_FALSE(launcher->TheForm().timers.tmrCheckUp.Enabled());
  EXPECT_EQ(longest, CheckUp::kLongestWait);
}

TEST_F(CheckUpStory, OneThatTheOperatorHasBegunIsNotBegunAnewByTheCompleteWindow) {
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->CompleteWindow();
  launcher->Pass(milliseconds(900));
  EXPECT_EQ(View().lblCheck.Caption(), "Nothing to complain about.");
}

TEST_F(CheckUpStory, TheButtonOpensTheWindowWithTheFindings) {
  PutBareConf();
  StartLauncher();
  launcher->Click("cmdCheckUp");
  EXPECT_TRUE(View().window.IsOpen());
  EXPECT_FALSE(View().cmdAgain.Enabled());
  launcher->Pass(seconds(2));
  ASSERT_EQ(View().lstCheck.Items().size(), 9u);
  EXPECT_EQ(View().lstCheck.Items()[0], "error: conf-line-ends: conf\\map_athena.conf");
  EXPECT_EQ(View().lblCheck.Caption(), "3 errors.");
  EXPECT_TRUE(View().cmdRepair.Enabled());
  EXPECT_TRUE(View().cmdAgain.Enabled());
}

TEST_F(CheckUpStory, WhatTheWindowShowsCountsAndNotWhatIsStored) {
  StartLauncher();
  launcher->Choose("Exes", 2, "char-server.exe");
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  ASSERT_FALSE(View().lstCheck.Items().empty());
  EXPECT_EQ(View().lstCheck.Items()[0], "error: executable: Char and Map: char-server.exe");
}

TEST_F(CheckUpStory, AnExecutableThatIsGoneSinceItWasChosenIsMissing) {
  StartLauncher();
  machine.files.Remove("C:\\srv\\map-server.exe");
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  ASSERT_EQ(View().lstCheck.Items().size(), 3u);
  EXPECT_EQ(View().lstCheck.Items()[0], "error: executable: Map: map-server.exe");
  EXPECT_EQ(View().lstCheck.Items()[1], "    The file is missing in the server root.");
}

TEST_F(CheckUpStory, CheckedAgainItSaysTheSameAndNothingTwice) {
  PutBareConf();
  StartLauncher();
  machine.processes.StartForeign(kMap, "D:\\other\\");
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  const std::vector<std::string> first = View().lstCheck.Items();
  EXPECT_GT(first.size(), 9u);
  launcher->Click("cmdAgain");
  launcher->Pass(seconds(2));
  EXPECT_EQ(View().lstCheck.Items(), first);
}

TEST_F(CheckUpStory, CopyPutsAllOfItOnTheClipboard) {
  PutBareConf();
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  launcher->Click("cmdCopy");
  SimInstanceLock lock(machine.recorder, machine.locks);
  EXPECT_EQ(machine.clipboard.text, CheckFromOutside(machine.PortsFor(lock)).text);
  EXPECT_TRUE(machine.clipboard.text.ends_with("3 errors.\r\n"));
  machine.clipboard.keptOpen = true;
  launcher->Click("cmdCopy");
  EXPECT_EQ(machine.boxes.NewTexts(), "Another program keeps the clipboard open.\n");
}

TEST_F(CheckUpStory, RepairAsksFirst) {
  PutBareConf();
  const std::string before = machine.files.TextOf(kConf);
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  launcher->Click("cmdRepair");
  ASSERT_EQ(machine.boxes.Shown().size(), 1u);
  EXPECT_TRUE(machine.boxes.Shown()[0].noIsDefault);
  EXPECT_NE(machine.boxes.Shown()[0].text.find("conf\\map_athena.conf"), std::string::npos);
  EXPECT_EQ(machine.files.TextOf(kConf), before);
}

TEST_F(CheckUpStory, RepairAsksOnceHoweverOftenItIsPressed) {
  PutBareConf();
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  machine.boxes.whileNextIsOpen = [this] { View().cmdRepair.Click(); };
  launcher->Click("cmdRepair");
  EXPECT_EQ(machine.boxes.Shown().size(), 1u);
  launcher->Click("cmdRepair");
  EXPECT_EQ(machine.boxes.Shown().size(), 2u) << "a No is no last word";
}

TEST_F(CheckUpStory, RepairTakesEachFileThatWantsItAndNoOther) {
  PutBareConf();
  std::string bare = UsualBattleConf();
  std::erase(bare, '\r');
  machine.files.Put("C:\\srv\\conf\\battle_athena.conf", bare);
  const std::string endless = UsualCharConf() + std::string(CheckUp::kMostBytes, '/');
  machine.files.Put("C:\\srv\\conf\\char_athena.conf", endless);
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("cmdRepair");
  EXPECT_EQ(machine.boxes.Shown()[0].text.find("char_athena.conf"), std::string::npos);
  EXPECT_EQ(machine.files.TextOf(kConf), UsualMapConf());
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\conf\\battle_athena.conf"), UsualBattleConf());
  EXPECT_EQ(machine.files.TextOf("C:\\srv\\conf\\char_athena.conf"), endless);
}

TEST_F(CheckUpStory, RepairKeepsADatedCopyAndChecksAgain) {
  PutBareConf();
  const std::string before = machine.files.TextOf(kConf);
  machine.files.Mark(kConf, "rights");
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("cmdRepair");
  EXPECT_EQ(machine.files.TextOf(kConf), UsualMapConf());
  EXPECT_EQ(machine.files.MarksOf(kConf), "rights");
  EXPECT_EQ(machine.files.TextOf(std::string(kConf) + ".20261121100002.old"), before);
  launcher->Pass(seconds(2));
  EXPECT_EQ(View().lblCheck.Caption(), "Nothing to complain about.");
  EXPECT_FALSE(View().cmdRepair.Enabled());
  EXPECT_EQ(Caption(), "Check-up...");
}

TEST_F(CheckUpStory, ARepairThatIsRefusedLeavesTheFileAndSaysWhy) {
  PutBareConf();
  const std::string before = machine.files.TextOf(kConf);
  machine.files.ProtectFromWriting(kConf);
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("cmdRepair");
  EXPECT_EQ(machine.files.TextOf(kConf), before);
  EXPECT_EQ(machine.boxes.Shown().back().text,
            std::string(kConf) + " could not be replaced: Access is denied. (system error 5)");
}

TEST_F(CheckUpStory, WithoutItsCopyNoFileIsRepaired) {
  PutBareConf();
  const std::string before = machine.files.TextOf(kConf);
  machine.copies.DenyWriting("C:\\srv\\conf");
  StartLauncher();
  launcher->Click("cmdCheckUp");
  launcher->Pass(seconds(2));
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("cmdRepair");
  EXPECT_EQ(machine.files.TextOf(kConf), before);
  EXPECT_TRUE(machine.boxes.Shown().back().text.starts_with("The old file could not be copied"));
}

TEST_F(CheckUpStory, AKillAtAnyMomentOfTheRepairLeavesTheOldFileOrTheNewOne) {
  for (std::size_t n = 1; n < 30; ++n) {
    PutBareConf();
    const std::string before = machine.files.TextOf(kConf);
    StartLauncher();
    launcher->Click("cmdCheckUp");
    launcher->Pass(seconds(2));
    machine.boxes.AnswerNext(Answer::Yes);
    machine.recorder.KillAtCall(n);
    bool killed = false;
    try {
      launcher->Click("cmdRepair");
    } catch (const LauncherKilled&) {
      killed = true;
    }
    machine.recorder.KillAtCall(0);
    const std::string after = machine.files.TextOf(kConf);
    EXPECT_TRUE(after == before || after == UsualMapConf()) << n;
    KillLauncher();
    if (!killed) return;
    machine.boxes.AnswerNext(Answer::No);  // What the killed one left is not taken by the next.
    machine.boxes.Ask({});
  }
}

TEST_F(CheckUpStory, FromOutsideItTouchesNothing) {
  PutBareConf();
  StartWithAllServers();
  const std::string state = launcher->RunningTimers(ComponentKind::Map);
  machine.recorder.Forget();
  SimInstanceLock lock(machine.recorder, machine.locks);
  const CheckUpAnswer answer = CheckFromOutside(machine.PortsFor(lock));
  EXPECT_EQ(answer.exitCode, 2);
  EXPECT_EQ(answer.text.substr(0, 46), "error: conf-line-ends: conf\\map_athena.conf\r\n ");
  EXPECT_EQ(Writes(), 0u);
  EXPECT_EQ(machine.recorder.CountOf("lock"), 0u);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Map), state);
  EXPECT_EQ(launcher->Log(), "");
}

TEST_F(CheckUpStory, FromOutsideItSaysTheSameWithoutALauncher) {
  PutBareConf();
  SimInstanceLock lock(machine.recorder, machine.locks);
  EXPECT_EQ(CheckFromOutside(machine.PortsFor(lock)).exitCode, 2);
  machine.files.Put(kConf, UsualMapConf());
  const CheckUpAnswer answer = CheckFromOutside(machine.PortsFor(lock));
  EXPECT_EQ(answer.exitCode, 0);
  EXPECT_EQ(answer.text, "Nothing to complain about.\r\n");
  EXPECT_EQ(machine.network.Starts(), machine.network.Stops());
}

}  // namespace
}  // namespace tarvo
