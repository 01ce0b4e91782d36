// How much of its time the launcher's one thread waits for silent hosts, on the simulated machine:
// with a probe's own time, and as it was while each connect had the system's 21 seconds. One line
// for each figure: name, value, unit, limit, held or short.

#include <chrono>
#include <string>

#include "benches/figures.h"
#include "tests/simulation/launcher.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

/// The share of an hour, in percent, in which the first `silent` of the three servers, frozen and
/// never killed, are waited for.
double ShareBlocked(std::size_t silent, bool patient) {
  SimMachine machine;
  machine.SetSetting("AutoRandomize", "1");
  if (patient) machine.network.WaitAsTheSystemDoes();
  Launcher launcher(machine);
  launcher.Start();
  for (std::size_t i = 0; i < 3; ++i) {
    launcher.Check("chkAK", i);
    launcher.Type("TTO", i, "1000000");
  }
  launcher.Click("bStart", 3);
  launcher.Pass(1min);
  for (std::size_t i = 0; i < silent; ++i) {
    machine.processes.TheOne(kServers[i]).answer = PortAnswer::TimesOut;
  }
  launcher.Pass(1min);
  const std::uint64_t begin = machine.clock.Age();
  const std::uint64_t waited = machine.network.Waited();
  launcher.Pass(1h);
  const auto hour = static_cast<double>(machine.clock.Age() - begin);
  return static_cast<double>(machine.network.Waited() - waited) / hour * 100;
}

int Run() {
  Figures figures;
  const struct {
    const char* before;
    const char* after;
    double limit;  ///< A second in three for each: the probes come every 2 seconds.
  } cases[] = {{"one silent host: blocked before", "one silent host: blocked", 34},
               {"two silent hosts: blocked before", "two silent hosts: blocked", 67},
               {"three silent hosts: blocked before", "three silent hosts: blocked", 100}};
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    figures.Report(cases[i].before, ShareBlocked(i + 1, true), "%");
    figures.AtMost(cases[i].after, ShareBlocked(i + 1, false), "%", cases[i].limit);
  }
  return figures.ExitCode();
}

}  // namespace
}  // namespace tarvo

int main() { return tarvo::Run(); }
