#include "supervision/freeze_watch.h"

#include <optional>

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Freezes : public LauncherStory {
 protected:
  /// Starts all servers, autokill after so many seconds on each; the log is empty at 10:00:11.
  void Watch(const std::string& seconds) {
    StartLauncher();
    for (std::size_t i = 0; i < 3; ++i) {
      launcher->Check("chkAK", i);
      launcher->Type("TTO", i, seconds);
    }
    launcher->Click("bStart", 3);
    launcher->Pass(11s);
    launcher->ForgetLog();
  }
  AlarmState Alarm(ComponentKind kind) { return launcher->Of(kind).AlarmState; }
  std::string LastFailure() { return launcher->TheForm().frame.lblErr.Caption(); }
  /// Takes a login server under control that is frozen already, at this tick count.
  void AdoptFrozenAt(std::uint64_t ticks) {
    machine.clock.SetTicks(ticks);
    StartLauncher();
    launcher->Check("chkAK", 0);
    launcher->Type("TTO", 0, "5");
    machine.processes.StartForeign(kLogin);
    Freeze(kLogin);
    launcher->Click("bStart", 0);
  }
};

TEST_F(Freezes, ASilentServerIsWarnedOfOnceKilledBeyondItsTimeAndStartedAgain) {
  Watch("15");
  const ProcessId old = Process(kLogin).id;
  Freeze(kLogin);
  launcher->Pass(26s);
  EXPECT_EQ(launcher->Log(),
            "10:00:13 1 Login server freeze!... waiting...\n"
            "10:00:29 2 Shuting down Login...\n"
            "10:00:30 2 Login Server crashed, restarting...\n"
            "10:00:30 0 Login Server Started! [Low Priority]\n"
            "10:00:33 0 Listening Login Server\n");
  EXPECT_NE(Process(kLogin).id, old);
  EXPECT_EQ(LastFailure(), "Login: 2026-11-21 10:00:30");
}

TEST_F(Freezes, TheKillWaitsForTheFirstProbeAfterMoreThanItsWholeSeconds) {
  const struct {
    const char* limit;
    const char* killed;  // The freeze is seen at 10:00:13, probes follow every two seconds.
  } cases[] = {{"5", "10:00:19"}, {"6", "10:00:21"}, {"7", "10:00:21"}, {"16", "10:00:31"}};
  for (const auto& c : cases) {
    machine.clock.SetLocal(std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + 10h);
    Watch(c.limit);
    Freeze(kLogin);
    launcher->Pass(30s);
    EXPECT_NE(launcher->Log().find(std::string(c.killed) + " 2 Shuting down Login...\n"),
              std::string::npos)
        << c.limit << '\n'
        << launcher->Log();
    launcher->Click("bStart", 4);
  }
}

TEST_F(Freezes, EachServerHasItsOwnWords) {
  Watch("5");
  Freeze(kChar);
  launcher->Pass(12s);
  EXPECT_EQ(launcher->NewLog(),
            "10:00:15 1 Char server freeze!... waiting...\n"
            "10:00:21 2 Shuting down Char...\n");
  EXPECT_EQ(LastFailure(), "Char: 2026-11-21 10:00:21");
  launcher->Pass(6s);
  launcher->ForgetLog();
  Freeze(kMap);
  launcher->Pass(8s);
  EXPECT_EQ(launcher->NewLog(),
            "10:00:30 1 Map server is freeze!... waiting...\n"
            "10:00:30 0 Listening Char Server\n"
            "10:00:36 2 Shuting down Map...\n");
  EXPECT_EQ(LastFailure(), "Map: 2026-11-21 10:00:36");
}

TEST_F(Freezes, EachServersReturnHasItsOwnWords) {
  const struct {
    const char* server;
    const char* back;
  } cases[] = {{kLogin, "Login server is back!"},
               {kChar, "Char server is back!"},
               {kMap, "Map server is back!"}};
  for (const auto& c : cases) {
    Watch("300");
    Freeze(c.server);
    launcher->Pass(20s);
    launcher->ForgetLog();
    Thaw(c.server);
    launcher->Pass(3s);
    EXPECT_EQ(launcher->Log().substr(8), std::string(" 0 ") + c.back + "\n");
    launcher->Click("bStart", 4);
  }
}

TEST_F(Freezes, AKillIsToldBeforeItIsDone) {
  for (const ComponentKind kind : kComponents) {
    Watch("5");
    const std::string name = NameOf(kind);
    const std::string executable = launcher->TheForm().servers.Exes[kind].Text();
    std::size_t told = 0;
    std::optional<std::string> failure;
    machine.recorder.beforeEach = [&] {
      if (!failure && machine.recorder.Calls().back().starts_with("processes.end(")) {
        told = launcher->CountInLog("Shuting down " + name + "...");
        failure = LastFailure();
      }
    };
    Freeze(executable);
    while (!failure) launcher->Pass(100ms);
    machine.recorder.beforeEach = nullptr;
    EXPECT_EQ(told, 1u) << name;
    EXPECT_EQ(failure->substr(0, name.size() + 2), name + ": ");
    EXPECT_EQ(launcher->CountInLog(name + " Server crashed, restarting..."), 0u);
    launcher->Click("bStart", 4);
  }
}

TEST_F(Freezes, AServerThatAnswersAgainInTimeIsBackAndWatchedAtItsInterval) {
  Watch("15");
  Freeze(kLogin);
  launcher->Pass(7s);
  Thaw(kLogin);
  launcher->Pass(1s);
  EXPECT_EQ(launcher->NewLog(),
            "10:00:13 1 Login server freeze!... waiting...\n"
            "10:00:19 0 Login server is back!\n");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TTL");
  EXPECT_GT(launcher->Of(ComponentKind::Login).FreezeStart, 0);
  launcher->Pass(10s);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).FreezeStart, 0);
  launcher->Pass(1h);
  EXPECT_EQ(launcher->Log(), "");
}

TEST_F(Freezes, ASecondFreezeIsMeasuredFromItsOwnBeginning) {
  Watch("15");
  Freeze(kLogin);
  launcher->Pass(13s);
  Thaw(kLogin);
  launcher->Pass(3s);
  Freeze(kLogin);
  launcher->Pass(24s);
  EXPECT_EQ(launcher->Log(),
            "10:00:13 1 Login server freeze!... waiting...\n"
            "10:00:25 0 Login server is back!\n"
            "10:00:35 1 Login server freeze!... waiting...\n"
            "10:00:51 2 Shuting down Login...\n");
}

TEST_F(Freezes, AMomentsSilenceBetweenTwoProbesIsTwoLinesAtOnce) {
  Watch("15");
  // The first connect is refused, the probe that follows at once is answered.
  Freeze(kLogin);
  std::size_t connects = 0;
  machine.recorder.beforeEach = [&] {
    if (machine.recorder.Calls().back() == "sockets.connect()" && ++connects == 2) Thaw(kLogin);
  };
  launcher->Pass(2s);
  EXPECT_EQ(launcher->Log(),
            "10:00:13 1 Login server freeze!... waiting...\n"
            "10:00:13 0 Login server is back!\n");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TTL");
  machine.recorder.beforeEach = nullptr;
}

TEST_F(Freezes, TwoProbesRunAtDetectionAndThenOneEveryTwoSeconds) {
  Watch("15");
  launcher->Pass(1s);
  Freeze(kLogin);
  const std::size_t before = machine.network.Connects().size();
  launcher->Pass(1s);
  EXPECT_EQ(machine.network.Connects().size() - before, 2u);
  launcher->Pass(1999ms);
  EXPECT_EQ(machine.network.Connects().size() - before, 2u);
  launcher->Pass(1ms);
  EXPECT_EQ(machine.network.Connects().size() - before, 4u);  // The char server's periodic probe.
}

TEST_F(Freezes, WhoeverComesBackSetsTheLoginServersLight) {
  const struct {
    const char* name;
    ComponentKind kind;
    AlarmState login;
    AlarmState own;
  } cases[] = {{kChar, ComponentKind::Char, AlarmState::Trouble, AlarmState::Trouble},
               {kMap, ComponentKind::Map, AlarmState::Healthy, AlarmState::Trouble},
               {kLogin, ComponentKind::Login, AlarmState::Healthy, AlarmState::Healthy}};
  for (const auto& c : cases) {
    Watch("300");
    launcher->Check("chkAK", 0, c.kind == ComponentKind::Login);
    Freeze(c.name);
    launcher->Pass(12s);
    ASSERT_EQ(Alarm(c.kind), AlarmState::Trouble) << c.name;
    Thaw(c.name);
    launcher->Pass(2s);
    EXPECT_EQ(Alarm(ComponentKind::Login), c.login) << c.name;
    EXPECT_EQ(Alarm(c.kind), c.own) << c.name;
    launcher->Pass(11s);
    EXPECT_EQ(Alarm(c.kind), AlarmState::Healthy) << c.name;
    launcher->Click("bStart", 4);
  }
}

TEST_F(Freezes, WithAutokillUncheckedNothingIsProbedAndNothingKilled) {
  StartWithAllServers();
  for (const char* name : kServers) Freeze(name);
  launcher->Pass(1h);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_TRUE(machine.network.Connects().empty());
}

TEST_F(Freezes, UncheckedWhileWatchingTheTimerGoesOnIdlyAndCheckingResumes) {
  Watch("15");
  launcher->Check("chkAK", 0, false);
  Freeze(kLogin);
  launcher->Pass(1min);
  EXPECT_EQ(launcher->NewLog(), "");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TTL");
  launcher->Check("chkAK", 0);
  launcher->Pass(3s);
  EXPECT_EQ(launcher->NewLog(), "10:01:13 1 Login server freeze!... waiting...\n");
}

TEST_F(Freezes, CheckedAfterTheGraceNothingIsWatchedUntilTheNextStart) {
  StartWithAllServers();
  launcher->Check("chkAK", 0);
  Freeze(kLogin);
  launcher->Pass(10min);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl");
}

TEST_F(Freezes, UncheckedInTheMiddleOfAFreezeTheProbesGoOnAndKillNothing) {
  Watch("5");
  Freeze(kLogin);
  launcher->Pass(3s);
  launcher->Check("chkAK", 0, false);
  const std::size_t before = machine.network.Connects().size();
  launcher->Pass(1min);
  EXPECT_EQ(launcher->NewLog(), "10:00:13 1 Login server freeze!... waiting...\n");
  EXPECT_GE(machine.network.Connects().size() - before, 30u);
  Thaw(kLogin);
  launcher->Pass(2s);
  EXPECT_EQ(launcher->NewLog(), "10:01:15 0 Login server is back!\n");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TTL");
}

TEST_F(Freezes, CheckedAgainInTheMiddleOfALongFreezeItIsKilledAtTheNextProbe) {
  Watch("5");
  Freeze(kLogin);
  launcher->Pass(3s);
  launcher->Check("chkAK", 0, false);
  launcher->Pass(30s);
  launcher->Check("chkAK", 0);
  launcher->Pass(2s);
  EXPECT_EQ(launcher->Log(),
            "10:00:13 1 Login server freeze!... waiting...\n"
            "10:00:45 2 Shuting down Login...\n");
}

TEST_F(Freezes, AnAutokillTimeEmptiedInAFreezeIsFatalAtTheNextProbe) {
  Watch("15");
  Freeze(kLogin);
  launcher->Pass(3s);
  launcher->Type("TTO", 0, "");
  launcher->Pass(1min);
  EXPECT_EQ(machine.boxes.NewTexts(),
            "Run-time error '13':\r\n\r\nType mismatch\r\n\r\nLoginTimeout\n");
  EXPECT_EQ(launcher->ExitCode(), 1);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(Freezes, AnEmptiedAutokillTimeIsNotAskedForWhenTheServerAnswers) {
  Watch("15");
  Freeze(kLogin);
  launcher->Pass(3s);
  launcher->Type("TTO", 0, "");
  Thaw(kLogin);
  launcher->Pass(2s);
  EXPECT_EQ(launcher->CountInLog("Login server is back!"), 1u);
  EXPECT_FALSE(launcher->Ended());
}

TEST_F(Freezes, AnEmptiedAutokillTimeIsNotAskedForWithAutokillUnchecked) {
  Watch("15");
  Freeze(kLogin);
  launcher->Pass(3s);
  launcher->Type("TTO", 0, "");
  launcher->Check("chkAK", 0, false);
  launcher->Pass(1min);
  EXPECT_FALSE(launcher->Ended());
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TLogin");
}

TEST_F(Freezes, AnEmptiedAutokillTimeIsFatalInTheSystemsFirstSecondToo) {
  AdoptFrozenAt(0);
  launcher->Type("TTO", 0, "");
  launcher->Pass(3s);
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), 1);
}

TEST_F(Freezes, WithAnAutokillTimeBelowZeroTheKillIsAtOnce) {
  Watch("15");
  launcher->Type("TTO", 0, "-5");
  Freeze(kLogin);
  launcher->Pass(2s);
  EXPECT_EQ(launcher->Log(),
            "10:00:13 1 Login server freeze!... waiting...\n"
            "10:00:13 2 Shuting down Login...\n");
}

TEST_F(Freezes, EachServerHasItsOwnTime) {
  for (const ComponentKind kind : kComponents) {
    Watch("300");
    launcher->Type("TTO", IndexOf(kind), "5");
    for (const char* executable : kServers) Freeze(executable);
    launcher->Pass(20s);
    for (const ComponentKind other : kComponents) {
      const std::string line = std::string("Shuting down ") + NameOf(other) + "...";
      EXPECT_EQ(launcher->CountInLog(line), other == kind ? 1u : 0u) << NameOf(kind);
    }
    for (const char* executable : kServers) Thaw(executable);
    launcher->Click("bStart", 4);
  }
}

TEST_F(Freezes, AFreezeBeginsWhenTheProbeIsOver) {
  Watch("15");
  Process(kLogin).answer = PortAnswer::TimesOut;
  std::optional<std::uint32_t> begun;
  machine.recorder.beforeEach = [&] {
    if (!begun && machine.recorder.Calls().back().starts_with("sockets.connect(")) {
      begun = machine.clock.Milliseconds();
    }
  };
  launcher->Pass(4s);
  machine.recorder.beforeEach = nullptr;
  ASSERT_TRUE(begun);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).FreezeStart, *begun / 1000 + 1);
}

TEST_F(Freezes, AFreezeInTheSystemsFirstSecondIsNeverKilled) {
  AdoptFrozenAt(0);
  ASSERT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TLogin");
  launcher->Pass(10min);
  EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 0u);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TLogin");
}

TEST_F(Freezes, AFreezeInTheSystemsNextSecondIsKilled) {
  AdoptFrozenAt(1000);
  ASSERT_EQ(launcher->Of(ComponentKind::Login).FreezeStart, 1);
  launcher->Pass(20s);
  EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 1u);
}

TEST_F(Freezes, TheKillIsDueWhateverTheSystemsAge) {
  constexpr std::uint64_t kDay = 86400000;
  for (const std::uint64_t age : {kDay, std::uint64_t{0x80000000} - 5000, std::uint64_t{0x80000000},
                                  30 * kDay, 49 * kDay, 50 * kDay, 75 * kDay}) {
    launcher.reset();
    machine.clock.SetTicks(age);
    Watch("5");
    Freeze(kLogin);
    launcher->Pass(20s);
    EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 1u) << age;
    launcher->Click("bStart", 4);
  }
}

TEST_F(Freezes, AFreezeAcrossTheWrapOfTheTickCountIsKilledOnlyInANewFreeze) {
  machine.clock.SetTicks(0x100000000 - 20000);
  Watch("5");
  Freeze(kLogin);
  launcher->Pass(3s);
  ASSERT_EQ(launcher->CountInLog("Login server freeze!... waiting..."), 1u);
  // The wrap comes 6 seconds before the kill would be due.
  launcher->Type("TTO", 0, "12");
  launcher->Pass(10min);
  EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 0u);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Login), "LCtrl TLogin");
  Thaw(kLogin);
  launcher->Pass(2s);
  Freeze(kLogin);
  launcher->Pass(30s);
  EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 1u);
  EXPECT_EQ(launcher->CountInLog("Login Server crashed, restarting..."), 1u);
}

TEST_F(Freezes, AConnectThatTakesLongDelaysTheOtherWatchesAndLosesNone) {
  machine.network.WaitAsTheSystemDoes();
  Watch("60");
  Process(kLogin).answer = PortAnswer::TimesOut;
  launcher->Pass(1s);
  Crash(kMap);
  launcher->Pass(45s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1u);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1u);
  launcher->Pass(5min);
  EXPECT_GE(launcher->CountInLog("Shuting down Login..."), 1u);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(Freezes, AServerThatStartsSlowlyIsWarnedOfAndIsBackWithinItsTime) {
  machine.processes.Program(kMap).portOpensAfter = 25000;
  Watch("60");
  launcher->Pass(30s);
  EXPECT_EQ(launcher->CountInLog("Map server is back!"), 1u);
  EXPECT_EQ(launcher->CountInLog("Shuting down Map..."), 0u);
}

TEST_F(Freezes, AServerWhosePortIsNoPortIsKilledAndRestartedForEver) {
  machine.PutConf("C:\\srv", "login_port: 70000\r\nchar_port: 6121\r\n", UsualMapConf());
  Watch("5");
  launcher->Pass(10min);
  EXPECT_GE(launcher->CountInLog("Shuting down Login..."), 20u);
  EXPECT_EQ(launcher->CountInLog("Login server is back!"), 0u);
  EXPECT_EQ(machine.processes.Named(kLogin).size(), 1u);
}

TEST_F(Freezes, TheIntervalOfTheSettingsIsTheProbes) {
  machine.SetSetting("LoginChkInterval", "500");
  Watch("15");
  machine.recorder.Forget();
  Freeze(kChar);  // Nothing of interest happens to it within these ten seconds but its own lines.
  const std::size_t before = machine.network.Connects().size();
  launcher->Check("chkAK", 1, false);
  launcher->Check("chkAK", 2, false);
  launcher->Pass(10s);
  EXPECT_EQ(machine.network.Connects().size() - before, 10u);
}

TEST_F(Freezes, AnIntervalThatIsNotTheUsualOneIsTold) {
  machine.SetSetting("LoginChkInterval", "15000");
  machine.SetSetting("CharChkInterval", "500");
  machine.SetSetting("MapChkInterval", "2500");
  StartLauncher();
  const std::string log = launcher->NewLog();
  EXPECT_NE(log.find(" 1 Login Check Interval: 15 seconds.\n"
                     "10:00:00 1 Char Check Interval: 1 seconds.\n"
                     "10:00:00 1 Map Check Interval: 2.5 seconds.\n"),
            std::string::npos)
      << log;
  machine.SetSetting("CharChkInterval", "10000");
  StartLauncher();
  EXPECT_EQ(launcher->Log().find("Char Check Interval"), std::string::npos);
}

TEST_F(Freezes, ClocksSetByHoursDisturbNoFreeze) {
  for (const auto jump : {-5h, 5h}) {
    machine.clock.SetLocal(std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + 10h);
    Watch("15");
    Freeze(kLogin);
    launcher->Pass(5s);
    machine.clock.SetLocal(machine.clock.Now() + jump);
    launcher->Pass(11s);
    EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 0u);
    launcher->Pass(3s);
    EXPECT_EQ(launcher->CountInLog("Shuting down Login..."), 1u);
    launcher->Click("bStart", 4);
  }
}

}  // namespace
}  // namespace tarvo
