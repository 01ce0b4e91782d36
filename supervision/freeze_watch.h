#pragma once

#include <span>
#include <string>

#include "core/component.h"
#include "core/launcher_events.h"
#include "core/process_control.h"
#include "core/status_log.h"
#include "platform/clock.h"
#include "supervision/port_probe.h"
#include "toolkit/controls.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// What the freeze watch reads, and the timers that it runs.
struct FreezeWatchControls {
  PerComponent<Timer>& preparation;
  PerComponent<Timer>& probe;
  PerComponent<Timer>& reprobe;
  std::span<const CheckBox, kComponentCount> autokill;
  const PerComponent<TextBox>& autokillTimes;
  const PerComponent<DropDownList>& executables;
  Label& lastFailure;
};

/// What a component's freeze watch does at the moment. In every state but the first its timer runs.
enum class FreezeState {
  Off,
  Grace,     ///< `PrepL`, `PrepC`, `PrepM`: after a start.
  Watching,  ///< `TTL`, `TTC`, `TTM`: probed at its interval.
  Frozen,    ///< `TLogin`, `TChar`, `TMap`: probed every 2 seconds.
};

enum class FreezeEvent {
  Started,
  GraceOver,      ///< The component is probed at once, as at its interval.
  Answers,        ///< A periodic probe found it listening.
  FallsSilent,    ///< A periodic probe did not; one more follows at once.
  AnswersAgain,   ///< A frozen component listens.
  StaysSilent,    ///< It does not, within its autokill time.
  SilentTooLong,  ///< Beyond that time: it is killed.
};

struct FreezeStep {
  FreezeEvent event;
  FreezeState from;  ///< Ends.
  FreezeState to;    ///< Begins, from its timer's full interval.
};

/// The whole watch, one row per event. A component that is stopped or has crashed is Off.
inline constexpr FreezeStep kFreezeSteps[] = {
    {FreezeEvent::Started, FreezeState::Off, FreezeState::Grace},
    {FreezeEvent::GraceOver, FreezeState::Grace, FreezeState::Off},
    {FreezeEvent::Answers, FreezeState::Watching, FreezeState::Watching},
    {FreezeEvent::FallsSilent, FreezeState::Watching, FreezeState::Frozen},
    {FreezeEvent::AnswersAgain, FreezeState::Frozen, FreezeState::Watching},
    {FreezeEvent::StaysSilent, FreezeState::Frozen, FreezeState::Frozen},
    {FreezeEvent::SilentTooLong, FreezeState::Frozen, FreezeState::Off},
};

/// Finds components that hang without dying: a started component's port is probed at its interval;
/// one that does not answer is probed again every 2 seconds, and killed once it has stayed silent
/// longer than its autokill time. It only kills: the crash watch finds the process gone and
/// restarts it.
///
/// The time base is the 32-bit tick count: a freeze that spans its wrap is not killed before a new
/// one begins. A freeze seen in the first second of the tick count is never killed.
class FreezeWatch {
 public:
  FreezeWatch(const FreezeWatchControls& controls, ComponentTable& components, PortProbe& probe,
              ProcessControl& processes, StatusLog& log, const LauncherEvents& events,
              LocalClock& localClock, TickClock& tickClock)
      : controls_(controls),
        components_(components),
        probe_(probe),
        processes_(processes),
        log_(log),
        events_(events),
        localClock_(localClock),
        tickClock_(tickClock) {}

  /// The tick of `PrepL`, `PrepC`, `PrepM`, and the call at a component's start: a disabled timer
  /// is enabled; an enabled one has run out, and the component is probed at once.
  void Prepare(ComponentKind kind);

  /// The tick of `TTL`, `TTC`, `TTM`. Does nothing while the component's autokill is not checked.
  void ProbePeriodically(ComponentKind kind);

  /// The tick of `TLogin`, `TChar`, `TMap`. Raises the conversion's fault (13, 6) when the kill
  /// depends on an autokill time that is no number.
  void ProbeAgain(ComponentKind kind);

  /// The component was stopped or has crashed.
  void End(ComponentKind kind);

 private:
  Timer* TimerOf(FreezeState state, ComponentKind kind);
  void Step(ComponentKind kind, FreezeEvent event);
  bool Listens(ComponentKind kind);
  void NoteAnswer(ComponentKind kind);
  void BeginFreeze(ComponentKind kind);
  void EndFreeze(ComponentKind kind);
  bool MustBeKilled(ComponentKind kind);
  void Kill(ComponentKind kind);
  std::int64_t Seconds();

  FreezeWatchControls controls_;
  ComponentTable& components_;
  PortProbe& probe_;
  ProcessControl& processes_;
  StatusLog& log_;
  const LauncherEvents& events_;
  LocalClock& localClock_;
  TickClock& tickClock_;
  PerComponent<bool> heard_{};  ///< It has answered a probe since its start.
};

/// The change rule of an autokill time box: puts the cleaned text into it with the caret at its
/// end.
void TTO_Change(TextBox& box);

}  // namespace tarvo
