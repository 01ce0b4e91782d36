#pragma once

#include "platform/processes.h"

namespace tarvo {

/// Processes by the tool-help snapshot and the calls of kernel32; results are not checked beyond
/// what the port promises.
class WindowsProcesses : public Processes {
 public:
  std::vector<ProcessEntry> Snapshot() override;
  void End(ProcessId id) override;
  void ChangePriority(ProcessId id, std::uint32_t priorityClass) override;
  std::optional<std::int64_t> MemoryOf(ProcessId id) override;
  void TurnErrorDialogsOff() override;
  /// A console program gets a console of its own, whose window is hidden: it neither writes into
  /// the launcher's console nor ends with it, and owns a window as every other server does.
  LaunchResult LaunchHidden(const std::string& executablePath) override;
};

}  // namespace tarvo
