#pragma once

#include <string>
#include <utility>

#include "form/bindings.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {

/// Crash watch, freeze watch, start and stop on a simulated machine, without the rest of the
/// program: for what no operator reaches by one step. All three servers run, and were seen by their
/// last check.
struct CrashDesk {
  CrashDesk() {
    for (ComponentKind kind : kComponents) {
      machine.files.Put(std::string("C:\\srv\\") + kServers[IndexOf(kind)], "");
      for (const char* name : kServers) form.servers.Exes[kind].AddItem(name);
      form.servers.Exes[kind].SetListIndex(static_cast<int>(kind));
      form.servers.Prior[kind].SetListIndex(0);
    }
    log.listeners.push_back(
        [this](const LogLine& line) { lines_ += line.pieces.at(1).text + "\n"; });
    startStop.prepareFreezeWatch = [this](ComponentKind kind) { freezes.Prepare(kind); };
    startStop.endFreezeWatch = [this](ComponentKind kind) { freezes.End(kind); };
    for (ComponentKind kind : kComponents) startStop.StartComponent(kind);
    for (ComponentKind kind : kComponents) crashes.Check(kind);
    NewLines();
  }

  void Crash(ComponentKind kind) { machine.processes.Crash(components[kind].ProcessId); }

  /// The texts of the log's lines since the last call.
  std::string NewLines() { return std::exchange(lines_, {}); }

  SimMachine machine;
  TimerQueue queue{machine.clock};
  Form form{queue};
  ComponentTable components;
  ProcessControl processes{machine.processes, machine.processes,     machine.clock,
                           machine.codePage,  machine.workingFolder, form.servers.Exes,
                           "C:\\srv"};
  StatusLog log{machine.clock};
  LauncherEvents events;
  StartStop startStop{BindStartStop(form), components, processes, log, events, machine.boxes};
  PortProbe probe{machine.network};
  FreezeWatch freezes{BindFreezeWatch(form), components,   probe, processes, log, events,
                      machine.clock,         machine.clock};
  CrashWatch crashes{BindCrashWatch(form), components,   processes, startStop, freezes, log, events,
                     machine.clock,        machine.clock};

 private:
  std::string lines_;
};

}  // namespace tarvo
