#pragma once

#include <functional>

#include "core/component.h"
#include "core/launcher_events.h"
#include "core/process_control.h"
#include "core/start_stop.h"
#include "core/status_log.h"
#include "platform/clock.h"
#include "supervision/crash_loop.h"
#include "supervision/freeze_watch.h"
#include "toolkit/controls.h"

namespace tarvo {

/// What the crash watch reads and acts on.
struct CrashWatchControls {
  const PerComponent<DropDownList>& executables;
  const CheckBox& mapRestartsAll;
  Label& lastFailure;
};

/// Finds crashed components and brings them back. Every 5 seconds while a component is started, its
/// process must still own a top-level window; a process without one is a crash, and so is a launch
/// that was refused. There is no limit to the restarts and no pause between them. Every window but
/// 0 counts: handles have no sign.
class CrashWatch {
 public:
  CrashWatch(const CrashWatchControls& controls, ComponentTable& components,
             ProcessControl& processes, StartStop& startStop, FreezeWatch& freezeWatch,
             StatusLog& log, const LauncherEvents& events, LocalClock& clock, TickClock& tickClock)
      : controls_(controls),
        components_(components),
        processes_(processes),
        startStop_(startStop),
        freezeWatch_(freezeWatch),
        log_(log),
        events_(events),
        clock_(clock),
        tickClock_(tickClock) {}

  /// The tick of `LCtrl`, `CCtrl`, `MCtrl`. When the search for the window had no result, nothing
  /// changes until the next tick.
  void Check(ComponentKind kind);

  /// Stops and starts again every component that ran at its last check: login, char, map.
  void RestartRunning();

  /// When "Restart All components with Map Autokill" is checked: stops and starts again char, then
  /// login, each if it ran at its last check.
  void MapAutokillRestart();

  /// The component crashed: true when an upgrade has taken over, which starts again what has to
  /// run. Without this hook every crash is restarted.
  std::function<bool(ComponentKind)> upgradeTakesOver;

 private:
  void Crashed(ComponentKind kind);
  void Tell(ComponentKind kind);
  void Restart(ComponentKind kind);
  void StopAndStart(ComponentKind kind);

  CrashWatchControls controls_;
  ComponentTable& components_;
  ProcessControl& processes_;
  StartStop& startStop_;
  FreezeWatch& freezeWatch_;
  StatusLog& log_;
  const LauncherEvents& events_;
  LocalClock& clock_;
  TickClock& tickClock_;
  PerComponent<CrashLoop> loops_;
};

}  // namespace tarvo
