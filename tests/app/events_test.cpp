// What is reported while the launcher works, at each of the places that report.

#include <sstream>

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Events : public LauncherStory {
 protected:
  /// Everything runs, autokill is on everywhere, and what was reported so far is forgotten.
  void StartWatched() {
    StartLauncher();
    for (std::size_t i = 0; i < kComponentCount; ++i) launcher->Check("chkAK", i);
    launcher->Click("bStart", 3);
    launcher->Pass(11s);
    launcher->NewEvents();
  }
  std::string NewEvents() { return launcher->NewEvents(); }
};

TEST_F(Events, HaveANameEach) {
  std::string names;
  for (int event = 0; event <= static_cast<int>(LauncherEvent::UpgradeFailed); ++event) {
    names += std::string(NameOf(static_cast<LauncherEvent>(event))) + ' ';
  }
  EXPECT_EQ(names,
            "started listening crashed frozen back killed stopped refused-to-end crash-loop "
            "randomized upgraded upgrade-failed ");
}

TEST_F(Events, TellWhatAListenerBehindAnotherHearsToo) {
  LauncherEvents events;
  std::string heard;
  events.listeners.push_back([&](const EventReport& report) { heard += "1 " + report.text; });
  events.listeners.push_back([&](const EventReport& report) { heard += " 2 " + report.text; });
  events.Report(LauncherEvent::Upgraded, std::nullopt, "Done");
  EXPECT_EQ(heard, "1 Done 2 Done");
}

TEST_F(Events, AStartIsToldAndTheFirstAnswerAfterIt) {
  StartLauncher();
  launcher->Check("chkAK", 0);
  launcher->Click("bStart", 0);
  EXPECT_EQ(NewEvents(), "10:00:00 started Login: Login Server Started! [Low Priority]\n");
  launcher->Pass(3s);
  EXPECT_EQ(NewEvents(), "10:00:03 listening Login: Listening Login Server\n");
  launcher->Pass(1min);
  EXPECT_EQ(NewEvents(), "");
}

TEST_F(Events, AServerThatIsSilentAtFirstListensWhenItAnswers) {
  StartLauncher();
  machine.processes.Program(kLogin).portOpensAfter = 4000;
  launcher->Check("chkAK", 0);
  launcher->Click("bStart", 0);
  launcher->Pass(10s);
  EXPECT_EQ(NewEvents(),
            "10:00:00 started Login: Login Server Started! [Low Priority]\n"
            "10:00:03 frozen Login: Login server freeze!... waiting...\n"
            "10:00:05 listening Login: Listening Login Server\n"
            "10:00:05 back Login: Login server is back!\n");
}

TEST_F(Events, WithoutAutokillNoListeningIsTold) {
  StartLauncher();
  launcher->Check("chkAK", 1, false);
  launcher->Click("bStart", 1);
  launcher->Pass(1min);
  EXPECT_EQ(NewEvents(), "10:00:00 started Char: Char Server Started [Norm Priority]\n");
}

TEST_F(Events, AServerFoundInMemoryIsNotStartedButListens) {
  machine.processes.StartForeign(kMap);
  StartLauncher();
  launcher->Check("chkAK", 2);
  launcher->Click("bStart", 2);
  launcher->Pass(30s);
  EXPECT_EQ(NewEvents(), "10:00:00 listening Map: Listening Map Server\n");
}

TEST_F(Events, ACrashIsToldThenTheStartAndTheNewAnswer) {
  StartWatched();
  Crash(kLogin);
  launcher->Pass(10s);
  EXPECT_EQ(NewEvents(),
            "10:00:13 frozen Login: Login server freeze!... waiting...\n"
            "10:00:15 crashed Login: Login Server crashed, restarting...\n"
            "10:00:15 started Login: Login Server Started! [Low Priority]\n"
            "10:00:18 listening Login: Listening Login Server\n");
}

TEST_F(Events, AFreezeIsToldAndItsEnd) {
  StartWatched();
  Freeze(kChar);
  launcher->Pass(10s);
  Thaw(kChar);
  launcher->Pass(10s);
  EXPECT_EQ(NewEvents(),
            "10:00:15 frozen Char: Char server freeze!... waiting...\n"
            "10:00:23 back Char: Char server is back!\n");
}

TEST_F(Events, AServerKilledForAFreezeIsKilledThenFoundDead) {
  StartWatched();
  launcher->Type("TTO", 2, "5");
  Freeze(kMap);
  launcher->Pass(20s);
  EXPECT_EQ(NewEvents(),
            "10:00:20 frozen Map: Map server is freeze!... waiting...\n"
            "10:00:26 killed Map: Shuting down Map...\n"
            "10:00:30 crashed Map: Map Server crashed, restarting...\n"
            "10:00:30 started Map: Map Server Started [High Priority]\n");
}

TEST_F(Events, TheOperatorsStopIsTold) {
  StartWatched();
  launcher->Click("bStart", 2);
  EXPECT_EQ(NewEvents(), "10:00:11 stopped Map: Map Server Stopped!\n");
}

TEST_F(Events, AServerThatRefusesToEndIsToldInPlaceOfItsStop) {
  StartWatched();
  Process(kChar).program.refusesToDie = true;
  launcher->Click("bStart", 1);
  EXPECT_EQ(NewEvents(),
            "10:00:16 refused-to-end Char: [char-server.exe] refuses to end, still in memory!\n");
}

TEST_F(Events, TheRestartsOfAMapCrashAreTold) {
  StartWatched();
  launcher->Check("chkAK", 3);
  launcher->Pass(1s);
  Crash(kMap);
  launcher->Pass(3s);
  EXPECT_EQ(NewEvents(),
            "10:00:15 crashed Map: Map Server crashed, restarting...\n"
            "10:00:15 stopped Char: Char Server Stopped!\n"
            "10:00:15 started Char: Char Server Started [Norm Priority]\n"
            "10:00:15 stopped Login: Login Server Stopped!\n"
            "10:00:15 started Login: Login Server Started! [Low Priority]\n"
            "10:00:15 started Map: Map Server Started [High Priority]\n");
}

TEST_F(Events, AServerThatKeepsDyingIsACrashLoopOnceAnHourAndNoOtherIs) {
  StartWatched();
  machine.processes.Program(kMap).diesAtOnce = true;
  Crash(kMap);
  Crash(kLogin);
  launcher->Pass(2h);
  std::string loops;
  std::istringstream lines(NewEvents());
  for (std::string line; std::getline(lines, line);) {
    if (line.find("crash-loop") != std::string::npos) loops += line + '\n';
  }
  EXPECT_EQ(loops,
            "10:00:35 crash-loop Map: Map Server crashed 5 times within five minutes!\n"
            "11:00:35 crash-loop Map: Map Server crashed 5 times within five minutes!\n");
}

TEST_F(Events, ARandomizerRunIsToldWhenItChangedTheFile) {
  machine.files.Put("C:\\srv\\randomize.xml",
                    "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n</Randomize>\r\n");
  machine.random.Script({0.5});
  StartLauncher();
  launcher->Click("Command2");
  EXPECT_EQ(NewEvents(), "10:00:00 randomized all: Randomize was succesfull, 1 change(s)\n");
}

TEST_F(Events, ARandomizerRunThatChangedNothingIsNotTold) {
  StartLauncher();
  launcher->Click("Command2");
  EXPECT_EQ(NewEvents(), "");
}

}  // namespace
}  // namespace tarvo
