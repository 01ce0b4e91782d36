// A year of supervising three servers on the simulated machine, all watches on, with some faults:
// how fast the launcher's logic is, and whether it keeps its memory. One line for each figure:
// name, value, unit, limit, held or short. The exit code is 1 when one is short or the year went
// wrong.

#include <sys/resource.h>

#include <chrono>
#include <random>

#include "benches/figures.h"
#include "tests/simulation/launcher.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr int kSteps = 12 * 120;  // A fault in each; a twelfth of the year is 120 of them.
constexpr std::chrono::seconds kStep = 365 * 24h / kSteps;

constexpr double kLongestYear = 120;     // Seconds.
constexpr double kFewestTicks = 400000;  // A second.
constexpr double kMostMemory = 16384;    // KB.
constexpr double kLargestGrowth = 256;   // KB after the first month.

/// The most memory that the program has ever had, in KB.
long PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

class Year {
 public:
  Year() {
    machine_.SetSetting("AutoRandomize", "1");
    launcher_.Start();
    for (std::size_t i = 0; i < 3; ++i) {
      launcher_.Check("chkAK", i);
      launcher_.Type("TTO", i, "15");
    }
    launcher_.Check("WLog", 0);
    launcher_.Click("bStart", 3);
    launcher_.KeepNoLog();
    machine_.recorder.CountOnly();
    machine_.network.KeepNoConnects();
    machine_.files.DropAppends();
  }

  void Step() {
    const char* server = kServers[random_() % 3];
    if (machine_.processes.Named(server).size() == 1) Strike(machine_.processes.TheOne(server));
    launcher_.Pass(kStep);
  }

  bool AllRun() {
    for (const char* server : kServers) {
      if (machine_.processes.Named(server).size() != 1) return false;
    }
    return !launcher_.Ended() && machine_.boxes.Shown().empty();
  }

  std::size_t Ticks() const { return launcher_.Ticks(); }
  std::size_t Starts() const { return machine_.processes.Launches(); }

 private:
  void Strike(SimProcess& server) {
    switch (random_() % 3) {
      case 0:
        return machine_.processes.Crash(server.id);
      case 1:
        return machine_.processes.CloseWindows(server.id);
      default:
        server.answer = PortAnswer::Refuses;
    }
  }

  SimMachine machine_;
  Launcher launcher_{machine_};
  std::mt19937 random_{20261121};
};

int Run() {
  const auto start = std::chrono::steady_clock::now();
  Year year;
  long earlyMemory = 0;
  for (int step = 0; step < kSteps; ++step) {
    if (step == kSteps / 12) earlyMemory = PeakMemory();
    year.Step();
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  const double ticksASecond = static_cast<double>(year.Ticks()) / wall.count();
  const auto early = static_cast<double>(earlyMemory);
  const auto late = static_cast<double>(PeakMemory());

  const bool allCameBack = year.AllRun() && year.Starts() == kSteps + 3;

  Figures figures;
  figures.AtMost("a year", wall.count(), "s", kLongestYear);
  figures.AtLeast("ticks a second", ticksASecond, "ticks", kFewestTicks);
  figures.AtMost("most memory in the first month", early, "KB", kMostMemory);
  figures.AtMost("most memory in the year", late, "KB", early + kLargestGrowth);
  figures.Report("restarts", static_cast<double>(year.Starts()) - 3, "starts");
  figures.AtMost("faults without their one restart", allCameBack ? 0 : 1, "", 0);
  return figures.ExitCode();
}

}  // namespace
}  // namespace tarvo

int main() { return tarvo::Run(); }
