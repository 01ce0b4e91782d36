#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/component.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/foreign_windows.h"
#include "platform/processes.h"
#include "platform/working_folder.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The Windows priority class of an entry of the priority list: 0 idle, 1 below normal, 2 normal,
/// 3 above normal, 4 high, 5 (not in the list) real time; 0 for any other index.
std::uint32_t PriorityClassFor(int index);

/// Finds, launches, ends and ranks the servers' processes. No handle to a server is ever kept: a
/// server is known by the file name of its executable alone, letter case aside (in the system's
/// code page), and looked up afresh each time. Two roots whose executables share a name therefore
/// share their servers' fate. None of these operations reports an error unless it says so.
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

  /// Ends every process of that file name, the launcher's or not.
  void KillProcessesByName(const std::string& executableName);

  void SetPriority(ProcessId id, std::uint32_t priorityClass);

  /// The process's first top-level window without a parent, 0 when it owns none; process 0 owns
  /// none. A walk that ended because a window vanished under it says nothing and is begun again.
  /// Nothing when that goes on without end, or when the list turns in a circle: whether the process
  /// owns a window is not known then.
  std::optional<WindowHandle> FindMainWindow(ProcessId id);

  /// Asks for the window in its normal state, or hidden; a program that hangs obeys when it answers
  /// again, and is not waited for. Not 0 when the window was visible before, 0 for no window.
  int ShowComponentWindow(WindowHandle window, bool show);

  /// Starts the chosen executable of the root with a hidden window. It inherits the launcher's
  /// current folder, which is made the root first. Raises file not found (53) when
  /// there is no such file; any other reason comes back with id 0.
  LaunchResult LaunchComponent(ComponentKind kind);

  /// Ends the component's processes by name until none is left. A process that refuses to die is
  /// given up after `kLongestStop` milliseconds: then the result is false.
  bool StopProcesses(ComponentKind kind);

  static constexpr std::uint32_t kLongestStop = 5000;

 private:
  enum class WalkEnd { EndOfList, WindowVanished, CutOff };
  WalkEnd WalkWindows(ProcessId id, WindowHandle& found);

  Processes& processes_;
  ForeignWindows& windows_;
  TickClock& clock_;
  CodePage& codePage_;
  WorkingFolder& workingFolder_;
  const PerComponent<DropDownList>& executables_;
  const std::string appFolder_;
};

}  // namespace tarvo
