#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/component_kind.h"

namespace tarvo {

/// What happens to the servers, as those who are told of it distinguish it.
enum class LauncherEvent {
  Started,       ///< The launcher started a component; one that was found in memory is not told.
  Listening,     ///< The first successful probe of a component after its start, or after it was
                 ///< found in memory. A component without autokill is not probed.
  Crashed,       ///< Found dead by the crash watch, however it died; so is a refused launch.
  Frozen,        ///< The freeze watch found it silent.
  Back,          ///< A frozen component answers again.
  Killed,        ///< The launcher ended it for a freeze. The crash watch finds it dead after that.
  Stopped,       ///< Ended by a stop: the operator's, or that of a restart or an upgrade.
  RefusedToEnd,  ///< In place of `Stopped`: it is still in memory.
  CrashLoop,     ///< See `CrashLoop` in supervision.
  Randomized,    ///< New values were written into the server's file.
  Upgraded,      ///< The executables were replaced; what ran is not started again yet.
  UpgradeFailed  ///< Refused, or ended by a fault. That nothing is new is no failure.
};

/// Each event's name for those outside of the program: "started", "refused-to-end", "crash-loop".
const char* NameOf(LauncherEvent event);

struct EventReport {
  LauncherEvent event;
  std::optional<ComponentKind> component;  ///< None for what concerns all.
  /// The text of the log's line for it; where the log has none, one sentence like such a line.
  std::string text;
};

/// The one place where the rooms report what happens to the servers. It keeps no report.
class LauncherEvents {
 public:
  void Report(LauncherEvent event, std::optional<ComponentKind> component, std::string text) const;

  /// Each gets every report, in their order here, in the midst of the operation that reports it. A
  /// listener only takes notes: it starts nothing, waits for nothing, and does not change this
  /// list. What it refers to must outlive the feed's use.
  std::vector<std::function<void(const EventReport&)>> listeners;
};

}  // namespace tarvo
