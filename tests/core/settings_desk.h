#pragma once

#include <string>

#include "app/all_settings.h"
#include "form/bindings.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {

/// The settings between a form and the registry of a machine, with nothing else wired behind the
/// form.
struct SettingsDesk {
  SettingsDesk();

  /// Loads; the number and source of the fault that ended it ("13 LoginPri"), or "loaded".
  std::string Load();
  void Save();
  /// What the control of a value shows: a text, an index, "0" or "1".
  std::string Shown(const std::string& valueName);

  SimMachine machine;
  ServerRoot root{machine.launcherPath, machine.codePage};
  TimerQueue timers{machine.clock};
  Form form{timers};
  ComponentTable components;
  SettingsStore store{machine.registry, root.SettingsKey()};
  LauncherSettings settings{BindSettings(form), components, store};
  StartUpEntry startUp{form.servers.Check2, form.frame.SName, machine.registry, store, root};
  RandomizerSettings randomizerSettings{form.randomizer.opt_Rnd, form.randomizer.txtMxD, store,
                                        machine.clock};
  UpgradeSettings upgradeSettings{BindUpgradeSettings(form), store, root, machine.fileDialog,
                                  machine.boxes};
  EventSettings eventSettings{form.servers.chkEvents, store};
  MapStartCounters counters;
};

/// Loads with this one value, of that type, in the registry; what its control shows then, or the
/// fault.
std::string ShownAfterLoading(const std::string& valueName, const std::string& bytes,
                              std::uint32_t type = kRegistryText);

}  // namespace tarvo
