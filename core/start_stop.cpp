#include "core/start_stop.h"

#include "support/number_text.h"
#include "support/runtime_error.h"

namespace tarvo {
namespace {

constexpr std::int32_t kShortestAutokillTime = 5;  // Seconds.

std::string ServerName(ComponentKind kind) { return std::string(NameOf(kind)) + " Server"; }

/// Only the lines of the login server have these marks.
const char* StartedMark(ComponentKind kind) { return kind == ComponentKind::Login ? "!" : ""; }
const char* PriorityMark(ComponentKind kind) { return kind == ComponentKind::Login ? "." : ""; }

}  // namespace

std::int32_t AutokillTime(const TextBox& box, ComponentKind kind) {
  return NamingSource(std::string(NameOf(kind)) + "Timeout",
                      [&box] { return ToInteger(box.Text()); });
}

void StartStop::bStart_Click(std::size_t index) {
  if (const std::string reason = ReasonToRefuse(); !reason.empty()) {
    messageBoxes_.Ask({reason});
    return;
  }
  if (index == kStartAllButton) return StartAll();
  if (index == kStopAllButton) return StopAll();
  const ComponentKind kind = kComponents[index];
  if (controls_.buttons[index].Caption().ends_with('t')) {
    StartComponent(kind);
  } else {
    StopComponent(kind);
  }
}

std::string StartStop::ReasonToRefuse() const {
  const auto& executables = controls_.executables;
  for (const DropDownList& chooser : executables) {
    if (chooser.Text().empty()) return "Please, select the right servers from the list";
  }
  bool tooShort = false;
  for (ComponentKind kind : kComponents) {
    const TextBox& box = controls_.autokillTimes[kind];
    tooShort |= AutokillTime(box, kind) < kShortestAutokillTime && box.Enabled();
  }
  if (tooShort) return "The min autokill time is 5 second, please check.";
  const std::string login = executables[ComponentKind::Login].Text();
  const std::string charServer = executables[ComponentKind::Char].Text();
  const std::string map = executables[ComponentKind::Map].Text();
  if (login == charServer || login == map || charServer == map) {
    return "Please, select the right servers from the list!";
  }
  return {};
}

void StartStop::StartAll() {
  for (ComponentKind kind : kComponents) {
    if (components_[kind].ProcessId == 0) StartComponent(kind);
  }
  controls_.pages.SetPage(0);
}

void StartStop::StopAll() {
  for (ComponentKind kind : kComponents) {
    if (components_[kind].ProcessId > 0) StopComponent(kind);
  }
}

void StartStop::StartComponent(ComponentKind kind) {
  controls_.executables[kind].SetEnabled(false);
  CommandButton& button = controls_.buttons[IndexOf(kind)];
  button.SetCaption("Stop");
  button.SetBackground(controls_.started);
  if (kind == ComponentKind::Map && beforeMapServerStarts) beforeMapServerStarts();
  components_[kind].probeFailure.clear();
  LaunchOrAdopt(kind);
  if (components_[kind].ProcessId != 0) {
    if (prepareFreezeWatch) prepareFreezeWatch(kind);
    processes_.SetPriority(components_[kind].ProcessId,
                           PriorityClassFor(controls_.priorities[kind].ListIndex()));
  }
  // After a crash the timer still runs, and is due already when the restart took long: the new
  // process would have had no time to open its window.
  Timer& watch = controls_.crashWatch[kind];
  watch.SetEnabled(false);
  watch.SetEnabled(true);
  if (cameUnderControl) cameUnderControl(kind);
}

void StartStop::LaunchOrAdopt(ComponentKind kind) {
  const std::string executable = controls_.executables[kind].Text();
  const ProcessId running = processes_.FindProcessByName(executable);
  if (running == 0) return Launch(kind);
  components_[kind].ProcessId = running;
  log_.LogStatus("[" + executable + "] was found in memory!", kInfo);
  log_.LogStatus(ServerName(kind) + " under control" + StartedMark(kind) + PriorityText(kind),
                 kInfo);
  controls_.preparation[kind].SetEnabled(true);
}

void StartStop::Launch(ComponentKind kind) {
  const LaunchResult launched = processes_.LaunchComponent(kind);
  components_[kind].ProcessId = launched.id;
  if (launched.id != 0) {
    const std::string text = ServerName(kind) + " Started" + StartedMark(kind) + PriorityText(kind);
    log_.LogStatus(text, kInfo);
    return events_.Report(LauncherEvent::Started, kind, text);
  }
  components_[kind].AlarmState = AlarmState::Trouble;
  log_.LogStatus(
      "[" + controls_.executables[kind].Text() + "] can't be started: " + WordsOf(launched.reason),
      kAlert);
}

std::string StartStop::PriorityText(ComponentKind kind) const {
  return " [" + controls_.priorities[kind].Text() + " Priority]";
}

void StartStop::StopComponent(ComponentKind kind) {
  controls_.crashWatch[kind].SetEnabled(false);
  if (endFreezeWatch) endFreezeWatch(kind);
  Component& component = components_[kind];
  component.ProcessId = 0;
  component.RunningHandle = 0;
  EndProcesses(kind);
  component.AlarmState = AlarmState::NotWatched;
  component.probeFailure.clear();
  controls_.lights[kind].SetState(LightState::Stopped);
  controls_.executables[kind].SetEnabled(true);
  CommandButton& button = controls_.buttons[IndexOf(kind)];
  button.SetCaption("Start");
  button.SetBackground(controls_.stopped);
}

void StartStop::EndProcesses(ComponentKind kind) {
  const std::string stopped = ServerName(kind) + " Stopped!";
  log_.LogStatus(stopped, kNotice);
  if (processes_.StopProcesses(kind)) {
    return events_.Report(LauncherEvent::Stopped, kind, stopped);
  }
  const std::string refuses =
      "[" + controls_.executables[kind].Text() + "] refuses to end, still in memory!";
  log_.LogStatus(refuses, kAlert);
  events_.Report(LauncherEvent::RefusedToEnd, kind, refuses);
}

void StartStop::Prior_Click(ComponentKind kind) {
  const ProcessId id = components_[kind].ProcessId;
  if (id == 0) return;
  const DropDownList& list = controls_.priorities[kind];
  processes_.SetPriority(id, PriorityClassFor(list.ListIndex()));
  log_.LogStatus(
      ServerName(kind) + " running with " + list.Text() + " priority" + PriorityMark(kind),
      kNotice);
}

}  // namespace tarvo
