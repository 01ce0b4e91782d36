#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tarvo {

/// A process id; 0 means none.
using ProcessId = std::uint32_t;

struct ProcessEntry {
  ProcessId id = 0;
  std::string executable;  ///< Bare file name, as the process list spells it.
};

/// What became of a launch.
struct LaunchResult {
  ProcessId id = 0;          ///< 0: nothing was started, for the reason beside it.
  bool fileMissing = false;  ///< There is no such file. Any other reason may pass in a moment.
  FileFault reason;
};

/// The processes of the machine. No call keeps a handle open after it returns.
class Processes {
 public:
  virtual ~Processes() = default;
  /// Every process, in the system's order.
  virtual std::vector<ProcessEntry> Snapshot() = 0;
  /// Asks the system to end the process with exit code 0, and waits half a second at most until it
  /// is gone. It may still be listed afterwards, and a process that may not be opened is left alone
  /// without a word.
  virtual void End(ProcessId id) = 0;
  /// Sets a Windows priority class; fails silently.
  virtual void ChangePriority(ProcessId id, std::uint32_t priorityClass) = 0;
  /// The bytes of physical memory that the process has in use; nothing when it is gone or may not
  /// be asked.
  virtual std::optional<std::int64_t> MemoryOf(ProcessId id) = 0;
  /// From now on neither this program nor any that it starts is held open by one of the system's
  /// error dialogs when it crashes, or when its libraries cannot be loaded: it just ends.
  virtual void TurnErrorDialogsOff() = 0;
  /// Starts `executablePath` without arguments, with a hidden window, in the caller's current
  /// folder. The child's command line is the path itself, unquoted; the file that runs is
  /// that path and nothing that a blank in it might name instead.
  virtual LaunchResult LaunchHidden(const std::string& executablePath) = 0;
};

}  // namespace tarvo
