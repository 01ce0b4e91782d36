#include "supervision/freeze_watch.h"

#include <algorithm>

#include "core/start_stop.h"
#include "supervision/last_failure.h"
#include "supervision/probe_failure.h"
#include "support/number_text.h"

namespace tarvo {
namespace {

/// The map server's line has one word more.
const char* FreezeText(ComponentKind kind) {
  return kind == ComponentKind::Map ? " server is freeze!... waiting..."
                                    : " server freeze!... waiting...";
}

bool HoldsDigitsOnly(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

void FreezeWatch::Prepare(ComponentKind kind) {
  Timer& timer = controls_.preparation[kind];
  if (!timer.Enabled()) {
    timer.SetEnabled(true);
    return;
  }
  timer.SetEnabled(false);
  ProbePeriodically(kind);
  log_.LogStatus(std::string("Listening ") + NameOf(kind) + " Server", kInfo);
  components_[kind].AlarmState = AlarmState::Healthy;
}

void FreezeWatch::ProbePeriodically(ComponentKind kind) {
  if (!controls_.autokill[IndexOf(kind)].Checked()) return;
  Timer& timer = controls_.probe[kind];
  timer.SetEnabled(false);
  if (!Listens(kind)) {
    BeginFreeze(kind);
    return;
  }
  components_[kind].AlarmState = AlarmState::Healthy;
  timer.SetEnabled(true);
  components_[kind].FreezeStart = 0;
}

void FreezeWatch::BeginFreeze(ComponentKind kind) {
  log_.LogStatus(std::string(NameOf(kind)) + FreezeText(kind), kNotice);
  components_[kind].AlarmState = AlarmState::Trouble;
  components_[kind].FreezeStart = Seconds();
  ProbeAgain(kind);
}

void FreezeWatch::ProbeAgain(ComponentKind kind) {
  Timer& timer = controls_.reprobe[kind];
  timer.SetEnabled(false);
  if (Listens(kind)) {
    EndFreeze(kind);
  } else if (MustBeKilled(kind)) {
    Kill(kind);
  } else {
    timer.SetEnabled(true);
  }
}

void FreezeWatch::EndFreeze(ComponentKind kind) {
  log_.LogStatus(std::string(NameOf(kind)) + " server is back!", kInfo);
  // Whoever is back, the login server's light tells it; the component's own light follows at its
  // next periodic probe. Operators know it so.
  components_[ComponentKind::Login].AlarmState =
      kind == ComponentKind::Char ? AlarmState::Trouble : AlarmState::Healthy;
  controls_.probe[kind].SetEnabled(true);
}

bool FreezeWatch::MustBeKilled(ComponentKind kind) {
  if (!controls_.autokill[IndexOf(kind)].Checked()) return false;
  const std::int64_t start = components_[kind].FreezeStart;
  const std::int64_t elapsed = Seconds() - start;
  return elapsed > AutokillTime(controls_.autokillTimes[kind], kind) && start > 0;
}

void FreezeWatch::Kill(ComponentKind kind) {
  log_.LogStatus(std::string("Shuting down ") + NameOf(kind) + "...", kAlert);
  ShowLastFailure(controls_.lastFailure, kind, localClock_.Now());
  processes_.KillProcessesByName(controls_.executables[kind].Text());
}

bool FreezeWatch::Listens(ComponentKind kind) {
  const ComponentEndpoint& endpoint = components_[kind].endpoint;
  const bool listens = probe_.IsPortListening(endpoint.host, endpoint.port);
  components_[kind].probeFailure =
      ProbeFailureText(endpoint.host, endpoint.port, probe_.LastError());
  return listens;
}

std::int64_t FreezeWatch::Seconds() { return tickClock_.Milliseconds() / 1000; }

std::string CleanedSeconds(const std::string& text) {
  return HoldsDigitsOnly(text) ? text : PlainDecimal(NumericValue(text));
}

void TTO_Change(TextBox& box) {
  if (HoldsDigitsOnly(box.Text())) return;
  const std::string cleaned = CleanedSeconds(box.Text());
  // A number such as -5 or 1.5 cleans to itself, which is no change: so this comes to an end.
  box.SetText(cleaned);
  box.SetCaret(cleaned.size());
}

}  // namespace tarvo
