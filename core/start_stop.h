#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "core/component.h"
#include "core/launcher_events.h"
#include "core/process_control.h"
#include "core/status_log.h"
#include "platform/message_boxes.h"
#include "support/component_kind.h"
#include "toolkit/controls.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// The buttons that start and stop: one for each component, by its index, then these.
inline constexpr std::size_t kStartAllButton = kComponentCount;
inline constexpr std::size_t kStopAllButton = kStartAllButton + 1;

/// The seconds in an autokill box. Raises type mismatch (13) or overflow (6), which names the
/// setting that keeps them, for a text that is no 32-bit number.
std::int32_t AutokillTime(const TextBox& box, ComponentKind kind);

/// What starting and stopping a component act on.
struct StartStopControls {
  PerComponent<DropDownList>& executables;
  const PerComponent<DropDownList>& priorities;
  const PerComponent<TextBox>& autokillTimes;
  std::span<CommandButton, kComponentCount> buttons;
  Colour started;  ///< A button's background while its component is started.
  Colour stopped;
  PerComponent<Light>& lights;
  TabView& pages;
  PerComponent<Timer>& crashWatch;
  PerComponent<Timer>& preparation;  ///< Enabled before the hook for a component found in memory.
};

/// Starts and stops the components. The caption of a component's button is its state: "Start" when
/// it is stopped, "Stop" when it is started.
///
/// All members are called within an event, on the program's one thread. Stopping blocks until the
/// processes have ended (see `ProcessControl::StopProcesses`); a message box lets ticks go on. The
/// hooks are set before the first event, and an empty one is skipped; all references must outlive
/// the object.
class StartStop {
 public:
  StartStop(const StartStopControls& controls, ComponentTable& components,
            ProcessControl& processes, StatusLog& log, const LauncherEvents& events,
            MessageBoxes& messageBoxes)
      : controls_(controls),
        components_(components),
        processes_(processes),
        log_(log),
        events_(events),
        messageBoxes_(messageBoxes) {}

  /// A press on `bStart(index)`: 0 to 2 start or stop one component, `kStartAllButton` starts all
  /// that do not run, `kStopAllButton` stops all that run; there is no other index. The choice of
  /// executables and the autokill times are checked first, for every press and all three
  /// components; what is wrong is reported in a message box and ends the press. Raises the
  /// conversion's fault (13, 6) for an autokill time that is no 32-bit number.
  void bStart_Click(std::size_t index);

  /// Launches the component, or takes the process of its name that already runs under control; sets
  /// its priority and arms its watches. Raises file not found (53) when its executable is missing.
  ///
  /// A launch that the system refuses for any other reason is reported in the log and is no fault:
  /// the component counts as started, in trouble, with process id 0 and its crash watch armed,
  /// which tries again at each check. Its own button stops it, and "Start All" tries at once; "Stop
  /// All" and a close, which go by the process ids, ignore it.
  void StartComponent(ComponentKind kind);

  /// Disarms the component's watches and ends every process of its name. One that refuses to die is
  /// reported in the log, and the component counts as stopped nevertheless.
  void StopComponent(ComponentKind kind);

  /// The operator picked another priority: a running component gets it at once.
  void Prior_Click(ComponentKind kind);

  /// Called before the map server is looked for and launched.
  std::function<void()> beforeMapServerStarts;
  /// Called when the component's crash watch has been armed: it is under control from here on.
  std::function<void(ComponentKind)> cameUnderControl;
  /// The freeze watch's preparation of a component that has just been started.
  std::function<void(ComponentKind)> prepareFreezeWatch;
  /// The component is being stopped: nothing may probe it any more.
  std::function<void(ComponentKind)> endFreezeWatch;

 private:
  std::string ReasonToRefuse() const;
  void StartAll();
  void StopAll();
  void LaunchOrAdopt(ComponentKind kind);
  void Launch(ComponentKind kind);
  void EndProcesses(ComponentKind kind);
  std::string PriorityText(ComponentKind kind) const;

  StartStopControls controls_;
  ComponentTable& components_;
  ProcessControl& processes_;
  StatusLog& log_;
  const LauncherEvents& events_;
  MessageBoxes& messageBoxes_;
};

}  // namespace tarvo
