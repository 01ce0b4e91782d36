#pragma once

#include <functional>

#include "core/component.h"
#include "core/process_control.h"
#include "core/start_stop.h"
#include "core/status_log.h"
#include "platform/clock.h"
#include "toolkit/controls.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// What the crash watch reads and acts on.
struct CrashWatchControls {
  PerComponent<Timer>& preparation;
  PerComponent<Timer>& probe;
  PerComponent<Timer>& reprobe;
  const PerComponent<DropDownList>& executables;
  const CheckBox& mapRestartsAll;
  const OptionGroup& upgradeTrigger;  ///< 0 by hand, 1 a crash of the map server, 2 any crash.
  Label& lastFailure;
};

/// Finds crashed components and brings them back. Every 5 seconds while a component is started, its
/// process must still own a top-level window; a process without one is a crash, and so is a launch
/// that was refused. There is no limit to the restarts and no pause between them. Any window but 0
/// counts: handles are no numbers with a sign.
class CrashWatch {
 public:
  CrashWatch(const CrashWatchControls& controls, ComponentTable& components,
             ProcessControl& processes, StartStop& startStop, StatusLog& log, LocalClock& clock)
      : controls_(controls),
        components_(components),
        processes_(processes),
        startStop_(startStop),
        log_(log),
        clock_(clock) {}

  /// The tick of `LCtrl`, `CCtrl`, `MCtrl`. When the search for the window came to no result, all
  /// stays as it is until the next tick.
  void Check(ComponentKind kind);

  /// Stops and starts again every component that ran at its last check: login, char, map.
  void RestartRunning();

  /// When "Restart All components with Map Autokill" is checked: stops and starts again char, then
  /// login, each if it ran at its last check.
  void MapAutokillRestart();

  /// A component crashed: may an upgrade take over? Takes 1 for login, 2 for char, 3 for map. With
  /// a result greater than 0 the component is restarted as usual, otherwise the upgrade has seen to
  /// it. Without this hook every crash is restarted.
  std::function<int(int)> runUpgrade;

  /// True while an upgrade stops the running components: no crash begins another upgrade then.
  bool UpgradeInProgress = false;

 private:
  void Crashed(ComponentKind kind);
  bool TriggerHolds(ComponentKind kind) const;
  void Restart(ComponentKind kind);
  void StopAndStart(ComponentKind kind);

  CrashWatchControls controls_;
  ComponentTable& components_;
  ProcessControl& processes_;
  StartStop& startStop_;
  StatusLog& log_;
  LocalClock& clock_;
};

}  // namespace tarvo
