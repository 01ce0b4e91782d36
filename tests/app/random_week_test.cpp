// Days of supervision under random faults, and what must hold through all of them.

#include <ostream>
#include <random>

#include "form/log_screen.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kCheck = 5s;

struct Span {
  unsigned seed;
  unsigned days;
};

void PrintTo(const Span& span, std::ostream* out) {
  *out << "seed " << span.seed << ", days " << span.days;
}

class RandomWeek : public LauncherStory, public ::testing::WithParamInterface<Span> {
 protected:
  void StartWatching() {
    StartLauncher();
    for (std::size_t i = 0; i < 3; ++i) {
      launcher->Check("chkAK", i);
      launcher->Type("TTO", i, "15");
    }
    launcher->Check("WLog", 0);
    launcher->Click("bStart", 3);
    machine.recorder.CountOnly();
  }

  bool OneRuns(std::size_t i) { return machine.processes.Named(kServers[i]).size() == 1; }

  void CheckInvariants() {
    for (std::size_t i = 0; i < 3; ++i) {
      ASSERT_LE(machine.processes.Named(kServers[i]).size(), 1u) << kServers[i];
      ASSERT_TRUE(launcher->TheForm().timers.CrashWatch[i].Enabled()) << kServers[i];
    }
    ASSERT_LE(launcher->TheForm().status.RTLog.SourceLength(), kLongestLogSource + 200);
    ASSERT_EQ(machine.network.OpenSockets(), 0u);
    ASSERT_TRUE(machine.boxes.Shown().empty()) << machine.boxes.Shown().back().text;
    ASSERT_FALSE(launcher->Ended());
  }

  /// Lets time pass in steps, checking after each; a server that is gone at one step is back at the
  /// next.
  void PassChecked(std::chrono::seconds time) {
    for (std::chrono::milliseconds left = time; left > 0ms; left -= kCheck) {
      launcher->Pass(kCheck);
      CheckInvariants();
      if (HasFatalFailure()) return;
      for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_TRUE(OneRuns(i) || !gone[i]) << kServers[i];
        gone[i] = !OneRuns(i);
      }
    }
  }

  /// One random fault; the name of a server whose crash must be told, or nothing.
  void Strike(std::mt19937& random) {
    const std::size_t victim = random() % 3;
    if (!OneRuns(victim)) return PassChecked(5s);
    SimProcess& process = Process(kServers[victim]);
    const char* const words[] = {"Login", "Char", "Map"};
    const std::string crashLine = std::string(words[victim]) + " Server crashed, restarting...";
    const std::string killLine = std::string("Shuting down ") + words[victim] + "...";
    launcher->ForgetLog();
    switch (random() % 5) {
      case 0:
        machine.processes.Crash(process.id);
        PassChecked(5s);
        EXPECT_EQ(launcher->CountInLog(crashLine), 1u) << launcher->Log();
        break;
      case 1:
        machine.processes.CloseWindows(process.id);
        PassChecked(5s);
        EXPECT_EQ(launcher->CountInLog(crashLine), 1u) << launcher->Log();
        break;
      case 2: {  // A freeze for good: seen, killed, replaced.
        const ProcessId old = process.id;
        process.answer = PortAnswer::Refuses;
        PassChecked(60s);
        EXPECT_GE(launcher->CountInLog(killLine), 1u) << launcher->Log();
        EXPECT_GE(launcher->CountInLog(crashLine), 1u) << launcher->Log();
        EXPECT_NE(Process(kServers[victim]).id, old);
        break;
      }
      case 3:  // A freeze that passes in time.
        process.answer = PortAnswer::Refuses;
        PassChecked(10s);
        Process(kServers[victim]).answer = PortAnswer::Listens;
        break;
      default:  // The operator sets the clock by up to ten hours, back or forth.
        machine.clock.SetLocal(machine.clock.Now() +
                               std::chrono::minutes(static_cast<int>(random() % 1200) - 600));
        break;
    }
  }

  bool gone[3] = {};
};

TEST_P(RandomWeek, NoServerTwiceNoneLostEveryCrashToldTheLogBounded) {
  const Span run = GetParam();
  SCOPED_TRACE("seed " + std::to_string(run.seed));
  std::mt19937 random(run.seed);
  StartWatching();
  PassChecked(20s);
  const std::uint64_t end = machine.clock.Age() + run.days * 24 * 3600000ull;
  std::size_t strikes = 0;
  while (machine.clock.Age() < end && !HasFatalFailure()) {
    Strike(random);
    ++strikes;
    if (HasFatalFailure()) return;
    launcher->Pass(std::chrono::seconds(60 + random() % 7200));
    CheckInvariants();
  }
  EXPECT_GT(strikes, run.days * 14);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(OneRuns(i)) << kServers[i];
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWeek,
                         ::testing::Values(Span{1, 7}, Span{20261121, 1}, Span{4711, 1}),
                         [](const ::testing::TestParamInfo<Span>& span) {
                           return "Seed" + std::to_string(span.param.seed) + "For" +
                                  std::to_string(span.param.days) + "Days";
                         });

}  // namespace
}  // namespace tarvo
