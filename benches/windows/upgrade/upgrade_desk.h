#pragma once

#include <string>

#include "core/server_configuration.h"
#include "form/bindings.h"
#include "platform/windows/windows_machine.h"

namespace tarvo {

inline constexpr const char* kServers[] = {"login-server.exe", "char-server.exe", "map-server.exe"};

/// Everything that an upgrade of a root works with, on the real system, without a window. The new
/// executables lie in `newFolder` under the old ones' names.
struct UpgradeDesk {
  UpgradeDesk(const Machine& system, Processes& processPort, FileCopies& copies,
              const std::string& launcherPath, const std::string& newFolder)
      : ports(system),
        root(launcherPath, ports.codePage),
        processes(processPort, ports.foreignWindows, ports.tickClock, ports.codePage,
                  ports.workingFolder, form.servers.Exes, root.AppFolder()),
        upgrade({BindUpgrade(form), components, startStop, log, events, settings,
                 ports.fileInspection, PatientCopies(copies, ports.tickClock), ports.localClock,
                 ports.messageBoxes, root.AppFolder()}) {
    ListExecutables(ports.folderLister, root, form.servers.Exes);
    for (ComponentKind kind : kComponents) {
      DropDownList& chooser = form.servers.Exes[kind];
      for (std::size_t i = 0; i < chooser.Items().size(); ++i) {
        const bool its = chooser.Items()[i] == kServers[IndexOf(kind)];
        if (its) chooser.SetListIndex(static_cast<int>(i));
      }
      form.servers.Prior[kind].SetListIndex(2);
      form.upgrade.nPath[kind].SetText(newFolder + "\\" + kServers[IndexOf(kind)]);
    }
  }

  Machine ports;
  ServerRoot root;
  TimerQueue timers{ports.tickClock};
  Form form{timers};
  ComponentTable components;
  StatusLog log{ports.localClock};
  LauncherEvents events;
  ProcessControl processes;
  StartStop startStop{BindStartStop(form), components, processes, log, events, ports.messageBoxes};
  SettingsStore store{ports.registry, root.SettingsKey()};
  UpgradeSettings settings{BindUpgradeSettings(form), store, root, ports.fileDialog,
                           ports.messageBoxes};
  ComponentUpgrade upgrade;
};

}  // namespace tarvo
