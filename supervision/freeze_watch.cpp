#include "supervision/freeze_watch.h"

#include <algorithm>

#include "core/launcher_settings.h"
#include "core/start_stop.h"
#include "supervision/probe_failure.h"
#include "supervision/status_lights.h"
#include "support/number_text.h"
#include "support/text.h"

namespace tarvo {
namespace {

/// The map server's line has one word more.
const char* FreezeText(ComponentKind kind) {
  return kind == ComponentKind::Map ? " server is freeze!... waiting..."
                                    : " server freeze!... waiting...";
}

std::string ListeningText(ComponentKind kind) {
  return std::string("Listening ") + NameOf(kind) + " Server";
}

}  // namespace

Timer* FreezeWatch::TimerOf(FreezeState state, ComponentKind kind) {
  switch (state) {
    case FreezeState::Grace:
      return &controls_.preparation[kind];
    case FreezeState::Watching:
      return &controls_.probe[kind];
    case FreezeState::Frozen:
      return &controls_.reprobe[kind];
    case FreezeState::Off:
      break;
  }
  return nullptr;
}

void FreezeWatch::Step(ComponentKind kind, FreezeEvent event) {
  const FreezeStep& step = kFreezeSteps[static_cast<std::size_t>(event)];
  if (Timer* ended = TimerOf(step.from, kind)) ended->SetEnabled(false);
  if (Timer* begun = TimerOf(step.to, kind)) begun->SetEnabled(true);
}

void FreezeWatch::End(ComponentKind kind) {
  for (auto* timers : {&controls_.probe, &controls_.reprobe, &controls_.preparation}) {
    (*timers)[kind].SetEnabled(false);
  }
  heard_[kind] = false;
}

void FreezeWatch::Prepare(ComponentKind kind) {
  if (!controls_.preparation[kind].Enabled()) return Step(kind, FreezeEvent::Started);
  Step(kind, FreezeEvent::GraceOver);
  ProbePeriodically(kind);
  log_.LogStatus(ListeningText(kind), kInfo);
  components_[kind].AlarmState = AlarmState::Healthy;
}

void FreezeWatch::ProbePeriodically(ComponentKind kind) {
  if (!controls_.autokill[IndexOf(kind)].Checked()) return;
  if (!Listens(kind)) return BeginFreeze(kind);
  Step(kind, FreezeEvent::Answers);
  components_[kind].AlarmState = AlarmState::Healthy;
  components_[kind].FreezeStart = 0;
}

void FreezeWatch::BeginFreeze(ComponentKind kind) {
  Step(kind, FreezeEvent::FallsSilent);
  const std::string text = std::string(NameOf(kind)) + FreezeText(kind);
  log_.LogStatus(text, kNotice);
  events_.Report(LauncherEvent::Frozen, kind, text);
  components_[kind].AlarmState = AlarmState::Trouble;
  components_[kind].FreezeStart = Seconds();
  ProbeAgain(kind);
}

void FreezeWatch::ProbeAgain(ComponentKind kind) {
  if (Listens(kind)) return EndFreeze(kind);
  if (MustBeKilled(kind)) return Kill(kind);
  Step(kind, FreezeEvent::StaysSilent);
}

void FreezeWatch::EndFreeze(ComponentKind kind) {
  Step(kind, FreezeEvent::AnswersAgain);
  const std::string text = std::string(NameOf(kind)) + " server is back!";
  log_.LogStatus(text, kInfo);
  events_.Report(LauncherEvent::Back, kind, text);
  // Whichever component is back, the login server's light shows it; the component's own light
  // follows at its next periodic probe. Operators are used to that.
  components_[ComponentKind::Login].AlarmState =
      kind == ComponentKind::Char ? AlarmState::Trouble : AlarmState::Healthy;
}

bool FreezeWatch::MustBeKilled(ComponentKind kind) {
  if (!controls_.autokill[IndexOf(kind)].Checked()) return false;
  const std::int64_t start = components_[kind].FreezeStart;
  const std::int64_t elapsed = Seconds() - start;
  return elapsed > AutokillTime(controls_.autokillTimes[kind], kind) && start > 0;
}

void FreezeWatch::Kill(ComponentKind kind) {
  Step(kind, FreezeEvent::SilentTooLong);
  const std::string text = std::string("Shuting down ") + NameOf(kind) + "...";
  log_.LogStatus(text, kAlert);
  ShowLastFailure(controls_.lastFailure, kind, localClock_.Now());
  processes_.KillProcessesByName(controls_.executables[kind].Text());
  events_.Report(LauncherEvent::Killed, kind, text);
}

bool FreezeWatch::Listens(ComponentKind kind) {
  const ComponentEndpoint& endpoint = components_[kind].endpoint;
  const bool listens = probe_.IsPortListening(endpoint.host, endpoint.port);
  components_[kind].probeFailure =
      ProbeFailureText(endpoint.host, endpoint.port, probe_.LastError());
  if (listens) NoteAnswer(kind);
  return listens;
}

void FreezeWatch::NoteAnswer(ComponentKind kind) {
  if (heard_[kind]) return;
  heard_[kind] = true;
  events_.Report(LauncherEvent::Listening, kind, ListeningText(kind));
}

std::int64_t FreezeWatch::Seconds() { return tickClock_.Milliseconds() / 1000; }

void TTO_Change(TextBox& box) {
  if (HoldsDigitsOnly(box.Text())) return;
  const std::string cleaned = CleanedSeconds(box.Text());
  // A number such as -5 or 1.5 cleans to itself, which is no change: so this comes to an end.
  box.SetText(cleaned);
  box.SetCaret(cleaned.size());
}

}  // namespace tarvo
