#include "tests/simulation/kills.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <map>
#include <set>

#include "support/date_time.h"
#include "tests/simulation/busy_life.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr char kMissing[] = "(none)";
constexpr unsigned kLongestCheck = 120;  // Seconds of real time; a check takes milliseconds.

/// What the launcher's work changes, apart from what the operator saves.
const std::set<std::string> kWorkValues = {"LastRandProcess", "LastRandomize", "DayRndCnt",
                                           "HourRndCnt",      "LASTUPDATE",    "LDATE",
                                           "CDATE",           "MDATE",         "UpdateMode"};

using Values = std::map<std::string, std::string>;

Values Stored(const SimMachine& machine) {
  return machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey());
}

bool IsOneOf(const std::string& path, std::initializer_list<const char*> endings) {
  for (const char* ending : endings) {
    if (path.ends_with(ending)) return true;
  }
  return false;
}

/// What files and settings held whenever an event was over: the only things that they may ever
/// hold.
class Wholes {
 public:
  explicit Wholes(unsigned seed) {
    SimMachine machine;
    BusyLife life(machine, seed);
    Keep(machine);
    life.onEventOver = [&] { Keep(machine); };
    life.Play();
    calls = machine.recorder.Count();
  }

  /// What is not whole on the machine; "" when everything is.
  std::string Torn(const SimMachine& machine) const {
    for (const std::string& path : machine.files.Paths()) {
      if (IsOneOf(path, {"-server.exe"}) && !IsBuilt(path, machine.files.TextOf(path))) {
        return path + " is torn: " + machine.files.TextOf(path);
      }
      if (!IsOneOf(path, {".conf", ".xml"})) continue;
      const auto known = texts_.find(path);
      if (known == texts_.end() || !known->second.contains(machine.files.TextOf(path))) {
        return path + " is torn: " + machine.files.TextOf(path);
      }
    }
    for (const auto& [path, texts] : texts_) {
      if (!machine.files.Has(path) && !texts.contains(kMissing)) return path + " is lost";
    }
    return TornSetting(Stored(machine));
  }

  std::size_t calls = 0;

 private:
  void Keep(const SimMachine& machine) {
    const bool first = texts_.empty();
    for (const std::string& path : machine.files.Paths()) {
      if (!IsOneOf(path, {".conf", ".xml"})) continue;
      if (!first && !texts_.contains(path)) texts_[path].insert(kMissing);
      texts_[path].insert(machine.files.TextOf(path));
    }
    const Values stored = Stored(machine);
    for (const auto& [name, value] : stored) {
      if (!first && !values_.contains(name)) values_[name].insert(kMissing);
      values_[name].insert(value);
    }
    for (auto& [name, values] : values_) {
      if (!stored.contains(name)) values.insert(kMissing);
    }
  }

  static bool IsBuilt(const std::string& path, const std::string& content) {
    for (ComponentKind kind : kComponents) {
      if (path.ends_with(kServers[IndexOf(kind)])) return BuildOf(kind, content) >= 0;
    }
    return true;
  }

  std::string TornSetting(const Values& stored) const {
    for (const auto& [name, values] : values_) {
      const auto found = stored.find(name);
      const std::string value = found == stored.end() ? kMissing : found->second;
      if (!values.contains(value)) return "setting " + name + " = " + value;
    }
    return {};
  }

  std::map<std::string, std::set<std::string>> texts_;
  std::map<std::string, std::set<std::string>> values_;
};

/// Whether an upgrade that is remembered as done was done.
std::string ForgottenUpgrade(const SimMachine& machine) {
  const char* const dates[] = {"LDATE", "CDATE", "MDATE"};
  for (ComponentKind kind : kComponents) {
    const char* const server = kServers[IndexOf(kind)];
    const int build = BuildOf(kind, machine.files.TextOf(std::string("C:\\srv\\") + server));
    const std::string date = machine.Setting(dates[IndexOf(kind)]);
    const auto remembered = LocalTime(std::chrono::seconds(DateOfBuild(build)));
    if (date != kMissing && date > GeneralDate(remembered)) {
      return std::string(server) + " is of build " + std::to_string(build) + ", remembered is " +
             date;
    }
  }
  return {};
}

std::string NotUnderControl(SimMachine& machine, Launcher& next) {
  if (next.Ended()) return "the next launcher has ended: " + machine.boxes.Shown().back().text;
  for (ComponentKind kind : kComponents) {
    const std::string server = kServers[IndexOf(kind)];
    const auto ids = machine.processes.Named(server);
    if (ids.size() != 1) return std::to_string(ids.size()) + " of " + server;
    if (next.Of(kind).ProcessId != ids.front()) return server + " is orphaned";
    if (!next.TheForm().timers.CrashWatch[kind].Enabled()) return server + " has no watch";
    if (next.Of(kind).AlarmState != AlarmState::Healthy) return server + " is not healthy";
    if (next.TheForm().status.bStart[IndexOf(kind)].Caption() != "Stop") {
      return server + " does not count as started";
    }
  }
  return {};
}

std::string LostSetting(const Values& before, const Values& after) {
  for (const auto& [name, value] : before) {
    const auto found = after.find(name);
    if (found == after.end()) return "setting " + name + " is lost";
    if (found->second != value && !kWorkValues.contains(name)) {
      return "setting " + name + " was " + value + ", is " + found->second;
    }
  }
  return {};
}

/// The launcher is dead: what is wrong with what it left behind, "" when nothing is.
std::string LostBehind(SimMachine& machine, const Wholes& wholes) {
  machine.recorder.beforeEach = nullptr;
  machine.boxes.whileNextIsOpen = nullptr;
  machine.BuryLauncher();
  if (std::string torn = wholes.Torn(machine); !torn.empty()) return torn;
  if (std::string forgotten = ForgottenUpgrade(machine); !forgotten.empty()) return forgotten;
  const Values stored = Stored(machine);
  Launcher next(machine);
  next.Start();
  next.Pass(90s);
  if (std::string lost = NotUnderControl(machine, next); !lost.empty()) return lost;
  if (machine.processes.SecondCopies() > 0) return "a second copy was started";
  next.EndSession();
  return LostSetting(stored, Stored(machine));
}

/// Kills the launcher here and now, in a copy of the program; what was lost, "" for nothing.
std::string KilledHere(SimMachine& machine, const Wholes& wholes) {
  int ends[2];
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child < 0) return "no fork";
  if (child == 0) {
    close(ends[0]);
    alarm(kLongestCheck);
    const std::string lost = LostBehind(machine, wholes);
    _exit(write(ends[1], lost.data(), lost.size()) == static_cast<ssize_t>(lost.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string lost;
  std::array<char, 4096> buffer{};
  for (ssize_t n = 0; (n = read(ends[0], buffer.data(), buffer.size())) > 0;) {
    lost.append(buffer.data(), static_cast<std::size_t>(n));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0 ? lost : "the check itself died, status " + std::to_string(status);
}

/// Kills at the `first` call and at each `every`-th from there on.
KillCount KillAt(unsigned seed, const Wholes& wholes, std::size_t first, std::size_t every) {
  KillCount count;
  count.calls = wholes.calls;
  SimMachine machine;
  BusyLife life(machine, seed);
  machine.recorder.beforeEach = [&] {
    const std::size_t call = machine.recorder.Count();
    if (call < first || (call - first) % every != 0) return;
    ++count.kills;
    const std::string lost = KilledHere(machine, wholes);
    if (lost.empty()) return;
    count.lost.push_back("seed " + std::to_string(seed) + ", call " + std::to_string(call) + ": " +
                         lost);
  };
  life.Play();
  count.happened = life.Happened();
  return count;
}

}  // namespace

KillCount KillInLife(unsigned seed, std::size_t kills) {
  const Wholes wholes(seed);
  const std::size_t every = wholes.calls / kills;
  return KillAt(seed, wholes, 1 + seed % every, every);
}

KillCount KillAtEveryCall(unsigned seed) { return KillAt(seed, Wholes(seed), 1, 1); }

}  // namespace tarvo
