#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "core/launcher_events.h"
#include "outside/state_report.h"
#include "platform/clock.h"
#include "platform/memory_status.h"
#include "platform/processes.h"
#include "randomizer/calendar_line.h"
#include "supervision/status_lights.h"
#include "toolkit/controls.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// What tells the state of the launcher.
struct StateControls {
  const PerComponent<Timer>& crashWatch;
  const PerComponent<Timer>& preparation;
  const PerComponent<Timer>& probe;
  const PerComponent<Timer>& reprobe;
  std::span<const CheckBox, kComponentCount> autokill;
  const Label& serverName;
  const Label& lastUpgrade;
  const ListBox& calendarEntries;
  const Timer& calendarTimer;
};

/// What decides a component's state.
struct StateFacts {
  bool underControl = false;  ///< Its crash watch runs.
  bool hasProcess = false;
  bool inGrace = false;
  bool silent = false;  ///< It is probed as a frozen one.
  bool killed = false;  ///< Ended for a freeze, and not found dead yet.
  bool probed = false;  ///< Its port is asked at its interval.
};

ComponentState StateOf(const StateFacts& facts);

/// The next time at which the calendar runs, after `now`: the first of the lines' moments; those of
/// one minute restart if any of them does. Lines that are no entries are skipped, and so are those
/// of the minute that ran last: another one has to run before them.
std::optional<CalendarMoment> NextEntry(const std::vector<std::string>& lines, LocalTime now,
                                        const std::optional<MinuteOfWeek>& ranLast);

/// Keeps what nobody else does: since when each component is in its state, how often it was started
/// again and why, and when it failed last. It looks at the components at the end of each event.
class StateWatch {
 public:
  struct Parts {
    StateControls controls;
    const ComponentTable& components;
    const StatusLights& lights;
    TimerQueue& timers;
    LocalClock& clock;
    Processes& processes;
    MemoryStatus& memory;
    std::string version;
    std::string root;
  };

  explicit StateWatch(Parts parts) : with_(std::move(parts)) {}

  /// Takes a note of what has happened; a listener of the launcher's events.
  void Hear(const EventReport& report);
  /// An event has ended; the first one is the launcher's start.
  void Look();

  /// Asks the machine for the figures of this moment.
  ComponentReport ReportOf(ComponentKind kind);
  StateReport Report();

  /// The minute of the week at which the calendar ran last.
  std::function<std::optional<MinuteOfWeek>()> calendarRanLast;

 private:
  struct Mark {
    LocalTime time;
    std::uint64_t age = 0;  ///< On `TimerQueue::Milliseconds`.
  };
  struct Failure {
    RestartCause cause;
    Mark at;
  };
  struct Known {
    bool seen = false;
    ComponentState state = ComponentState::Stopped;
    ProcessId process = 0;
    Mark since;
    std::optional<Mark> listeningSince;
    bool heardCrash = false;
    bool heardKill = false;
    bool killed = false;
    std::array<std::int64_t, 3> restarts{};
    std::optional<Failure> lastFailure;
  };

  Mark Now() { return {with_.clock.Now(), with_.timers.Milliseconds()}; }
  PastMoment Past(const Mark& mark);
  ComponentState StateOfKind(ComponentKind kind) const;
  void TakeFailure(Known& known, ProcessId now);
  void TakeState(Known& known, ComponentState state, ProcessId process);

  Parts with_;
  std::optional<Mark> started_;
  PerComponent<Known> known_;
};

}  // namespace tarvo
