// The launcher dies between any two calls that it makes of the machine; the next one must bring the
// servers under control, with no second copy of any.

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

/// Arranges a machine with all watches on, all servers started automatically.
void ArrangeAutoStart(SimMachine& machine) {
  machine.SetSetting("AutoRandomize", "1");
  for (const char* name : {"Login", "Char", "Map"}) {
    machine.SetSetting(std::string(name) + "AutoStart", "1");
    machine.SetSetting(std::string(name) + "AutoKillEnabled", "1");
  }
}

void ExpectUnderControl(SimMachine& machine, Launcher& launcher, const std::string& where) {
  for (ComponentKind kind : kComponents) {
    const auto ids = machine.processes.Named(kServers[IndexOf(kind)]);
    ASSERT_EQ(ids.size(), 1u) << where;
    EXPECT_EQ(launcher.Of(kind).ProcessId, ids.front()) << where;
    EXPECT_EQ(launcher.Of(kind).AlarmState, AlarmState::Healthy) << where;
    EXPECT_EQ(launcher.TheForm().status.bStart[IndexOf(kind)].Caption(), "Stop") << where;
    EXPECT_TRUE(launcher.TheForm().timers.CrashWatch[kind].Enabled()) << where;
  }
}

/// Plays the story with a death at its n-th call; false when the story was over before that.
bool DiesAt(std::size_t n, SimMachine& machine, const std::function<void(Launcher&)>& story) {
  Launcher launcher(machine);
  machine.recorder.KillAtCall(n);
  try {
    story(launcher);
  } catch (const LauncherKilled&) {
    return true;
  }
  machine.recorder.KillAtCall(0);
  return false;
}

/// Kills a first launcher at each call of its story in turn, and starts a second one each time.
void ForEveryDeath(const std::function<void(SimMachine&)>& arrange,
                   const std::function<void(Launcher&)>& story, std::size_t leastDeaths) {
  std::size_t n = 1;
  for (;; ++n) {
    SimMachine machine;
    ArrangeAutoStart(machine);
    arrange(machine);
    if (!DiesAt(n, machine, story)) break;
    Launcher next(machine);
    next.Start();
    next.Pass(20s);
    ExpectUnderControl(machine, next, "killed at call " + std::to_string(n));
    if (::testing::Test::HasFatalFailure()) return;
  }
  EXPECT_GT(n, leastDeaths);
}

TEST(KilledLauncher, BetweenAnyTwoCallsOfAStart) {
  ForEveryDeath([](SimMachine&) {}, [](Launcher& launcher) { launcher.Start(); }, 60);
}

TEST(KilledLauncher, BetweenAnyTwoCallsOfTheFirstSecondsOfWatching) {
  ForEveryDeath([](SimMachine&) {},
                [](Launcher& launcher) {
                  launcher.Start();
                  launcher.Pass(11s);
                },
                150);
}

TEST(KilledLauncher, BetweenAnyTwoCallsOfAnAdoption) {
  ForEveryDeath(
      [](SimMachine& machine) {
        for (const char* name : kServers) machine.processes.StartForeign(name);
      },
      [](Launcher& launcher) { launcher.Start(); }, 60);
}

TEST(KilledLauncher, BetweenAnyTwoCallsOfStopsAndStarts) {
  ForEveryDeath([](SimMachine&) {},
                [](Launcher& launcher) {
                  launcher.Start();
                  launcher.Pass(6s);
                  launcher.Click("bStart", 2);
                  launcher.Click("bStart", 3);
                  launcher.Click("bStart", 4);
                  launcher.Click("bStart", 3);
                },
                150);
}

TEST(KilledLauncher, BetweenAnyTwoCallsOfACrashAndItsRestart) {
  for (std::size_t n = 1;; ++n) {
    SimMachine machine;
    ArrangeAutoStart(machine);
    machine.SetSetting("MapFullAutokill", "1");
    const bool died = DiesAt(0, machine, [&](Launcher& launcher) {
      launcher.Start();
      launcher.Pass(11s);
      machine.processes.Crash(machine.processes.TheOne(kMap).id);
      machine.recorder.KillAtCall(n);
      launcher.Pass(4s);
    });
    if (!died) {
      EXPECT_GT(n, 30u);
      break;
    }
    Launcher next(machine);
    next.Start();
    next.Pass(20s);
    ExpectUnderControl(machine, next, "killed at call " + std::to_string(n));
    if (HasFatalFailure()) return;
  }
}

TEST(KilledLauncher, BetweenAnyTwoWritesOfACloseTheNextOneLoadsWhatThereIs) {
  for (std::size_t n = 1;; ++n) {
    SimMachine machine;
    const bool died = DiesAt(0, machine, [&](Launcher& launcher) {
      launcher.Start();
      for (std::size_t i = 0; i < 3; ++i) {
        launcher.Choose("Prior", i, "V-High");
        launcher.Check("chkAutoStart", i);
      }
      machine.recorder.KillAtCall(n);
      launcher.Close();
    });
    if (!died) {
      EXPECT_GT(n, 24u);
      break;
    }
    Launcher next(machine);
    next.Start();
    EXPECT_FALSE(next.Ended()) << n;
    EXPECT_EQ(next.CountInLog("Launcher Ready!"), 1u) << n;
  }
}

}  // namespace
}  // namespace tarvo
