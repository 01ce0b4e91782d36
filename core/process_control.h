#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/component.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/foreign_windows.h"
#include "platform/processes.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The Windows priority class of an entry of the priority list: 0 idle, 1 below normal, 2 normal,
/// 3 above normal, 4 high, 5 (not in the list) real time; 0 for any other index.
std::uint32_t PriorityClassFor(int index);

/// The process's first top-level window without a parent, 0 when it owns none; process 0 owns none.
/// A walk through the windows that was cut short by one that vanished proves nothing and is
/// repeated. Returns nothing, for "not known", when that does not end, or when the list goes in a
/// circle.
std::optional<WindowHandle> MainWindowOf(ForeignWindows& windows, ProcessId id);

/// Finds, launches and ends the servers' processes and sets their priority. No handle to a server
/// is ever kept: a server is known only by the file name of its executable, letter case aside (in
/// the system's code page), and looked up again each time. Two roots whose executables share a name
/// therefore act on each other's servers.
///
/// None of these operations reports an error unless it says so. All are called on the program's one
/// thread; only those that end processes wait. All references must outlive the object.
class ProcessControl {
 public:
  ProcessControl(Processes& processes, ForeignWindows& windows, TickClock& clock,
                 CodePage& codePage, WorkingFolder& workingFolder,
                 const PerComponent<DropDownList>& executables, std::string appFolder)
      : processes_(processes),
        windows_(windows),
        clock_(clock),
        codePage_(codePage),
        workingFolder_(workingFolder),
        executables_(executables),
        appFolder_(std::move(appFolder)) {}

  /// The first process of that file name in the system's order; 0 for none, and for an empty name.
  ProcessId FindProcessByName(const std::string& executableName);

  /// Ends every process of that file name, whoever started it; waits half a second at most for
  /// each.
  void KillProcessesByName(const std::string& executableName);

  /// `priorityClass` is a result of `PriorityClassFor`; 0 changes nothing.
  void SetPriority(ProcessId id, std::uint32_t priorityClass);

  /// See `MainWindowOf`.
  std::optional<WindowHandle> FindMainWindow(ProcessId id) { return MainWindowOf(windows_, id); }

  /// Shows the window in its normal state, or hides it, without waiting: a program that hangs obeys
  /// when it responds again. Returns other than 0 when the window was visible before; 0 for no
  /// window.
  int ShowComponentWindow(WindowHandle window, bool show);

  /// Starts the chosen executable of the root with a hidden window. It inherits the launcher's
  /// current folder, which is set to the root first. Raises file not found (53) when there is no
  /// such file; any other failure is returned, as id 0 and its reason.
  LaunchResult LaunchComponent(ComponentKind kind);

  /// Ends the component's processes by name and waits until none is left. False when one is still
  /// there after `kLongestStop` milliseconds.
  bool StopProcesses(ComponentKind kind);

  static constexpr std::uint32_t kLongestStop = 5000;

 private:
  Processes& processes_;
  ForeignWindows& windows_;
  TickClock& clock_;
  CodePage& codePage_;
  WorkingFolder& workingFolder_;
  const PerComponent<DropDownList>& executables_;
  const std::string appFolder_;
};

}  // namespace tarvo
