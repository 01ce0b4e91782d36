// What each fault does to the machine of a storm, and how it ends.

#include "tests/simulation/busy_life.h"
#include "tests/simulation/storm.h"

namespace tarvo {
namespace {

constexpr char kRoot[] = "C:\\srv\\";
constexpr std::uint64_t kLongestFault = 60000;

std::string NewPath(ComponentKind kind) {
  return std::string("C:\\new\\") + kServers[IndexOf(kind)];
}

}  // namespace

const char* NameOf(StormFault fault) {
  const char* const names[] = {"process gone",
                               "window gone",
                               "suspended",
                               "port closed",
                               "queue full",
                               "silent host",
                               "dead name server",
                               "late listener",
                               "dies at once",
                               "refuses to die",
                               "executable locked",
                               "executable missing",
                               "disk full",
                               "root read-only",
                               "log locked",
                               "conf gone",
                               "set cut off",
                               "registry refused",
                               "registry garbage",
                               "clock forward",
                               "clock back",
                               "session ends",
                               "launcher killed",
                               "launcher twice",
                               "operator stops and starts",
                               "operator upgrades",
                               "upgrade on a crash",
                               "operator randomizes",
                               "operator saves"};
  static_assert(std::size(names) == kStormFaults);
  return names[static_cast<std::size_t>(fault)];
}

const char* Storm::AnyServer() { return kServers[Draw(3)]; }

void Storm::Last(std::function<void()> ends) { In(1000 + Draw(kLongestFault), std::move(ends)); }

void Storm::Strike(StormFault fault) {
  ++faults_[fault];
  if (fault <= StormFault::SilentHost) return StrikeServer(fault);
  if (fault <= StormFault::ExecutableMissing) return StrikeProgram(fault);
  if (fault <= StormFault::SetCutOff) return StrikeFiles(fault);
  if (fault <= StormFault::SessionEnds) return StrikeSystem(fault);
  if (fault <= StormFault::LauncherTwice) return StrikeLauncher(fault);
  if (Alive()) Act(fault);
}

void Storm::StrikeServer(StormFault fault) {
  const auto ids = machine_.processes.Named(AnyServer());
  if (ids.empty()) return;
  switch (fault) {
    case StormFault::ProcessGone:
      return machine_.processes.Crash(ids.front());
    case StormFault::WindowGone:
      return machine_.processes.CloseWindows(ids.front());
    case StormFault::Suspended:
      return Silence(PortAnswer::NobodyAccepts, true);
    case StormFault::PortClosed:
      return Silence(PortAnswer::Refuses);
    case StormFault::QueueFull:
      return Silence(PortAnswer::NobodyAccepts);
    default:
      return Silence(PortAnswer::TimesOut);
  }
}

void Storm::Silence(PortAnswer answer, bool hangs) {
  const std::string server = AnyServer();
  const auto set = [this, server](PortAnswer to, bool hang) {
    if (machine_.processes.Named(server).size() != 1) return;
    SimProcess& process = machine_.processes.TheOne(server);
    process.answer = to;
    process.queueRoom = hang ? 2 : 0;
    process.hangs = hang;
  };
  set(answer, hangs);
  Last([set] { set(PortAnswer::Listens, false); });
}

void Storm::StrikeProgram(StormFault fault) {
  const std::string server = AnyServer();
  SimProgram& program = machine_.processes.Program(server);
  const std::string path = kRoot + server;
  switch (fault) {
    case StormFault::DeadNameServer:
      machine_.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
      return Last([this] { machine_.network.SetNameServerDelay(0); });
    case StormFault::LateListener:
      program.portOpensAfter = 20000;
      return Last([&program] { program.portOpensAfter = 0; });
    case StormFault::DiesAtOnce:
      program.diesAtOnce = true;
      return Last([&program] { program.diesAtOnce = false; });
    case StormFault::RefusesToDie: {
      const auto refuse = [this, server](bool refuses) {
        if (machine_.processes.Named(server).size() != 1) return;
        machine_.processes.TheOne(server).program.refusesToDie = refuses;
      };
      refuse(true);
      for (ComponentKind kind : kComponents) refused_[kind] |= server == kServers[IndexOf(kind)];
      return Last([refuse] { refuse(false); });
    }
    case StormFault::ExecutableLocked:
      program.launchFault = FileInUse();
      machine_.files.Hold(path, 1000 + Draw(20000));
      return Last([&program] { program.launchFault.reset(); });
    default:
      machine_.files.Remove(path);  // Back when the operator puts things right.
  }
}

void Storm::StrikeFiles(StormFault fault) {
  switch (fault) {
    case StormFault::DiskFull:
      machine_.copies.FailCopy(1, FileTrouble::DiskFull, 112, "There is not enough space");
      machine_.files.RefuseAppends(true);
      return Last([this] {
        machine_.copies.FailNoCopy();
        machine_.files.RefuseAppends(false);
      });
    case StormFault::RootReadOnly:
      machine_.copies.DenyWriting("C:\\srv");
      for (const std::string& path : machine_.files.Paths()) {
        if (path.starts_with(kRoot)) machine_.files.ProtectFromWriting(path);
      }
      return Last([this] {
        machine_.copies.AllowWriting();
        for (const std::string& path : machine_.files.Paths()) {
          machine_.files.ProtectFromWriting(path, false);
        }
      });
    case StormFault::LogLocked:
      machine_.files.RefuseAppends(true);
      return Last([this] { machine_.files.RefuseAppends(false); });
    case StormFault::ConfGone: {
      const char* const confs[] = {"login_athena.conf", "char_athena.conf", "map_athena.conf",
                                   "battle_athena.conf"};
      return machine_.files.Remove(std::string("C:\\srv\\conf\\") + confs[Draw(4)]);
    }
    default: {
      const std::string path = Draw(2) == 0 ? "C:\\srv\\randomize.xml" : "C:\\srv\\rndcalendar.xml";
      const std::string text = machine_.files.TextOf(path);
      machine_.files.Put(path, text.substr(0, Draw(text.size() + 1)));
    }
  }
}

void Storm::StrikeSystem(StormFault fault) {
  switch (fault) {
    case StormFault::RegistryRefused:
      machine_.registry.Deny(Hive::LocalMachine);
      machine_.registry.Deny(Hive::CurrentUser);
      return Last([this] {
        machine_.registry.Deny(Hive::LocalMachine, false);
        machine_.registry.Deny(Hive::CurrentUser, false);
      });
    case StormFault::RegistryGarbage: {
      const char* const names[] = {"LoginPri",  "MapTimeout", "CharExe",      "UpdateMode",
                                   "WriteMode", "DayRndCnt",  "LoginTimeout", "LastRandProcess"};
      const char* const garbage[] = {"", "abc", "99999999999", "-1", "\xff\x01", "1e400"};
      return machine_.SetSetting(names[Draw(std::size(names))], garbage[Draw(std::size(garbage))]);
    }
    case StormFault::ClockForward:
      return machine_.clock.SetLocal(machine_.clock.Now() + std::chrono::minutes(Draw(1200)));
    case StormFault::ClockBack:
      return machine_.clock.SetLocal(machine_.clock.Now() - std::chrono::minutes(Draw(1200)));
    default:
      if (!Alive()) return;
      launcher_->AskForEndOfSession();
      if (Draw(2) == 0) return launcher_->CallOffEndOfSession();
      launcher_->EndSession();
      for (const char* server : kServers) {
        for (ProcessId id : machine_.processes.Named(server)) machine_.processes.Crash(id);
      }
  }
}

void Storm::StrikeLauncher(StormFault fault) {
  if (!Alive()) return;
  if (fault == StormFault::LauncherTwice) return StartSecondLauncher();
  if (Draw(2) == 0) {
    machine_.recorder.KillAtCall(1 + Draw(300));
  } else {
    throw LauncherKilled{};
  }
}

void Storm::Act(StormFault act) {
  switch (act) {
    case StormFault::StopsAndStarts: {
      const std::size_t one = Draw(5);
      launcher_->Click("bStart", one);
      return In(Draw(10000), [this] {
        if (Alive()) PressStart();
      });
    }
    case StormFault::UpgradesOnCrash:
      launcher_->Click("optMode", Draw(3));
      [[fallthrough]];
    case StormFault::Upgrades:
      ++built_;
      for (ComponentKind kind : kComponents) {
        machine_.files.Put(NewPath(kind), BuiltExecutable(kind, built_));
        machine_.copies.SetDate(NewPath(kind), DateOfBuild(built_));
      }
      if (act == StormFault::UpgradesOnCrash) return;
      machine_.boxes.AnswerNext(Answer::Yes);
      return launcher_->Click("UpdateNow");
    case StormFault::Randomizes:
      if (launcher_->TheForm().randomizer.cmdParam.Items().empty()) return;
      launcher_->Type("rIni", 0, "1");
      launcher_->Type("rEnd", 0, std::to_string(2 + Draw(900)));
      launcher_->Click("rAdd", 0);
      launcher_->Click("opt_Rnd", Draw(2));
      return launcher_->Click("Command2");
    default:
      machine_.boxes.AnswerNext(Answer::Yes);
      return launcher_->Click("Command1");  // Unloads it, which saves.
  }
}

}  // namespace tarvo
