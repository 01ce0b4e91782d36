#include "outside/state_watch.h"

#include <algorithm>

#include "supervision/memory_watch.h"

namespace tarvo {
namespace {

constexpr std::uint64_t kMillisecondsInSecond = 1000;
constexpr std::size_t kLongestText = 1000;
constexpr int kMinutesInHour = 60;
constexpr int kMinutesInDay = 24 * 60;
constexpr int kDaysInWeek = 7;

/// A conf file without line ends has very long values.
std::string Cut(const std::string& text) { return text.substr(0, kLongestText); }

bool Listens(ComponentState state) {
  return state == ComponentState::Listening || state == ComponentState::Running;
}

int MinuteCount(const MinuteOfWeek& at) {
  return (at.weekday - 1) * kMinutesInDay + at.hour * kMinutesInHour + at.minute;
}

/// Minutes from one minute of the week to the next time that the other comes, 1 to a whole week.
int MinutesUntil(const MinuteOfWeek& from, const MinuteOfWeek& to) {
  const int distance = MinuteCount(to) - MinuteCount(from);
  return distance > 0 ? distance : distance + kDaysInWeek * kMinutesInDay;
}

}  // namespace

ComponentState StateOf(const StateFacts& facts) {
  if (!facts.underControl) return ComponentState::Stopped;
  if (!facts.hasProcess) return ComponentState::Refused;
  if (facts.killed) return ComponentState::Killed;
  if (facts.inGrace) return ComponentState::Starting;
  if (facts.silent) return ComponentState::Frozen;
  return facts.probed ? ComponentState::Listening : ComponentState::Running;
}

std::optional<CalendarMoment> NextEntry(const std::vector<std::string>& lines, LocalTime now,
                                        const std::optional<MinuteOfWeek>& ranLast) {
  std::optional<CalendarMoment> next;
  const LocalTime minute = std::chrono::floor<std::chrono::minutes>(now);
  for (const std::string& line : lines) {
    const auto entry = ReadCalendarLine(line);
    if (!entry || !ComesInAWeek(entry->at) || entry->at == ranLast) continue;
    const int wait = MinutesUntil(MinuteOfWeekAt(now), entry->at);
    const LocalTime at = minute + std::chrono::minutes(wait);
    if (next && next->at < at) continue;
    const bool together = next && next->at == at && next->restarts;
    next = {at, entry->restarts || together};
  }
  return next;
}

void StateWatch::Hear(const EventReport& report) {
  if (!report.component) return;
  Known& known = known_[*report.component];
  switch (report.event) {
    case LauncherEvent::Crashed:
      known.heardCrash = true;
      break;
    case LauncherEvent::Killed:
      known.heardKill = true;
      known.killed = true;
      break;
    case LauncherEvent::Stopped:
    case LauncherEvent::RefusedToEnd:
      known.killed = false;
      break;
    default:
      break;
  }
}

void StateWatch::Look() {
  if (!started_) started_ = Now();
  for (ComponentKind kind : kComponents) {
    Known& known = known_[kind];
    const ProcessId process = with_.components[kind].ProcessId;
    TakeFailure(known, process);
    TakeState(known, StateOfKind(kind), process);
  }
}

/// A kill is a failure at once; the crash watch finds it dead later, which is the same failure.
void StateWatch::TakeFailure(Known& known, ProcessId now) {
  const bool hadProcess = known.process != 0;
  if (known.heardKill) known.lastFailure = {RestartCause::Freeze, Now()};
  if (known.heardCrash && hadProcess) {
    const RestartCause cause = known.killed ? RestartCause::Freeze : RestartCause::Crash;
    ++known.restarts[static_cast<std::size_t>(cause)];
    if (cause == RestartCause::Crash) known.lastFailure = {cause, Now()};
  } else if (hadProcess && now != 0 && now != known.process) {
    ++known.restarts[static_cast<std::size_t>(RestartCause::Other)];
  }
  if (known.heardCrash) known.killed = false;
  known.heardKill = false;
  known.heardCrash = false;
}

void StateWatch::TakeState(Known& known, ComponentState state, ProcessId process) {
  const bool sameProcess = known.process == process;
  if (known.seen && known.state == state && sameProcess) return;
  const Mark now = Now();
  if (!Listens(state)) {
    known.listeningSince.reset();
  } else if (!known.listeningSince || !sameProcess) {
    known.listeningSince = now;
  }
  known.seen = true;
  known.state = state;
  known.process = process;
  known.since = now;
}

ComponentState StateWatch::StateOfKind(ComponentKind kind) const {
  const StateControls& controls = with_.controls;
  return StateOf(
      {.underControl = controls.crashWatch[kind].Enabled(),
       .hasProcess = with_.components[kind].ProcessId != 0,
       .inGrace = controls.preparation[kind].Enabled(),
       .silent = controls.reprobe[kind].Enabled(),
       .killed = known_[kind].killed,
       .probed = controls.probe[kind].Enabled() && controls.autokill[IndexOf(kind)].Checked()});
}

PastMoment StateWatch::Past(const Mark& mark) {
  const std::uint64_t age = with_.timers.Milliseconds() - mark.age;
  return {mark.time, static_cast<std::int64_t>(age / kMillisecondsInSecond)};
}

ComponentReport StateWatch::ReportOf(ComponentKind kind) {
  const Known& known = known_[kind];
  const Component& component = with_.components[kind];
  ComponentReport report;
  report.state = known.state;
  report.since = Past(known.since);
  report.processId = known.process;
  if (known.process != 0) report.memory = with_.processes.MemoryOf(known.process);
  report.endpoint = {Cut(component.endpoint.host), component.endpoint.port};
  report.probed =
      report.state == ComponentState::Listening || report.state == ComponentState::Frozen;
  if (known.listeningSince) report.listeningSince = Past(*known.listeningSince);
  report.restarts = known.restarts;
  if (known.lastFailure) {
    report.lastFailure = {known.lastFailure->cause, Past(known.lastFailure->at)};
  }
  report.probeFailure = Cut(component.probeFailure);
  report.alarm = component.AlarmState;
  return report;
}

StateReport StateWatch::Report() {
  const StateControls& controls = with_.controls;
  StateReport report;
  report.version = with_.version;
  report.root = with_.root;
  report.serverName = Cut(controls.serverName.Caption());
  report.now = with_.clock.Now();
  report.started = Past(started_.value_or(Now()));
  report.freeMemory = FreeMemory(with_.memory);
  report.totalMemory = TotalMemory(with_.memory);
  report.statusCode = with_.lights.StatusCode();
  if (controls.calendarTimer.Enabled()) {
    report.nextCalendarEntry =
        NextEntry(controls.calendarEntries.Items(), report.now, calendarRanLast());
  }
  report.lastUpgrade = controls.lastUpgrade.Caption();
  for (ComponentKind kind : kComponents) report.components[kind] = ReportOf(kind);
  return report;
}

}  // namespace tarvo
