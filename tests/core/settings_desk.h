#pragma once

#include <string>

#include "core/launcher_settings.h"
#include "tests/simulation/sim_machine.h"
#include "upgrade/upgrade_settings.h"

namespace tarvo {

/// The settings between a form and the registry of a machine, with the upgrade's values and
/// nothing else wired behind the form.
struct SettingsDesk {
  SettingsDesk();

  /// Loads; the number and source of the fault that ended it ("13 LoginPri"), or "loaded".
  std::string Load();
  /// What the control of a value shows: a text, an index, "0" or "1".
  std::string Shown(const std::string& valueName);

  SimMachine machine;
  ServerRoot root{machine.launcherPath, machine.codePage};
  TimerQueue timers{machine.clock};
  Form form{timers};
  ComponentTable components;
  LauncherSettings settings{form, components, machine.registry, root, machine.clock};
  UpgradeSettings upgradeSettings{form, machine.registry, root, machine.fileDialog, machine.boxes};
};

/// Loads with this one value, of that type, in the registry; what its control shows then, or the
/// fault.
std::string ShownAfterLoading(const std::string& valueName, const std::string& bytes,
                              std::uint32_t type = kRegistryText);

}  // namespace tarvo
