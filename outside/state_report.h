#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/component.h"
#include "support/component_kind.h"
#include "support/date_time.h"

namespace tarvo {

/// What the launcher knows of a component, in one word.
enum class ComponentState {
  Stopped,    ///< Not under control, whether or not such a process runs.
  Starting,   ///< Started, within its grace.
  Listening,  ///< Its port answered the last probe.
  Running,    ///< Beyond its grace and not probed, since its autokill is off.
  Frozen,     ///< Its port is silent.
  Killed,     ///< Ended for a freeze; the crash watch is about to start it again.
  Refused,    ///< The system refused to start it; that is tried again every 5 seconds.
};

/// "stopped", "starting", "listening", "running", "frozen", "killed", "refused".
const char* NameOf(ComponentState state);

/// Why the launcher has started a component again.
enum class RestartCause {
  Crash,
  Freeze,
  Other,  ///< An upgrade, the calendar, the map server's restart of all, a command.
};

inline constexpr RestartCause kRestartCauses[] = {RestartCause::Crash, RestartCause::Freeze,
                                                  RestartCause::Other};

/// "crash", "freeze", "other".
const char* NameOf(RestartCause cause);

/// A moment by the wall clock, and how long ago it is, which a clock that was set does not change.
struct PastMoment {
  LocalTime time;
  std::int64_t secondsAgo = 0;

  bool operator==(const PastMoment&) const = default;
};

struct FailureReport {
  RestartCause cause = RestartCause::Crash;
  PastMoment at;

  bool operator==(const FailureReport&) const = default;
};

struct ComponentReport {
  ComponentState state = ComponentState::Stopped;
  PastMoment since;
  ProcessId processId = 0;             ///< 0: none.
  std::optional<std::int64_t> memory;  ///< Bytes; nothing when it is not known.
  ComponentEndpoint endpoint;
  bool probed = false;  ///< Whether the launcher asks its port, which it does with autokill.
  /// Since when it is Listening, or Running; nothing in any other state.
  std::optional<PastMoment> listeningSince;
  std::array<std::int64_t, 3> restarts{};     ///< By `RestartCause`, since the launcher's start.
  std::optional<FailureReport> lastFailure;   ///< Likewise.
  std::string probeFailure;                   ///< Why the last probe failed; "" when it did not.
  AlarmState alarm = AlarmState::NotWatched;  ///< Its light.
};

struct CalendarMoment {
  LocalTime at;
  bool restarts = false;

  bool operator==(const CalendarMoment&) const = default;
};

/// What `--state` tells, of the whole launcher. Its texts are of the code page.
struct StateReport {
  std::string version;
  std::string root;
  std::string serverName;
  LocalTime now;
  PastMoment started;            ///< When the launcher was.
  std::int64_t freeMemory = 0;   ///< Bytes of physical memory and paging file.
  std::int64_t totalMemory = 0;  ///< Likewise.
  int statusCode = 8;            ///< Of the notification icon, 0 to 25.
  std::optional<CalendarMoment> nextCalendarEntry;
  std::string lastUpgrade;             ///< As the page Upgrade says it: a date, or "n/a".
  std::optional<std::string> openBox;  ///< The message box that the operator has to answer.
  PerComponent<ComponentReport> components;
};

/// "listening since 2026-11-21 10:32:07, process 1204, 56.1 MB, 2 restarts (1 crash, 1 freeze)".
std::string SentenceOf(const ComponentReport& component);

/// For people: lines that end with LF.
std::string StateAsText(const StateReport& report);

/// Turns a text of the code page into UTF-8.
using ToUtf8 = std::function<std::string(const std::string&)>;

/// One JSON object and a line end; docs/command-line.md has its fields.
std::string StateAsJson(const StateReport& report, const ToUtf8& toUtf8);

/// The text exposition format of Prometheus, in UTF-8.
std::string StateAsPrometheus(const StateReport& report, const ToUtf8& toUtf8);

}  // namespace tarvo
