#include "supervision/crash_watch.h"

#include <algorithm>
#include <string>

#include "supervision/status_lights.h"

namespace tarvo {

void CrashWatch::Check(ComponentKind kind) {
  Component& component = components_[kind];
  const auto window = processes_.FindMainWindow(component.ProcessId);
  if (!window) return;
  component.RunningHandle = *window;
  if (component.RunningHandle == 0) Crashed(kind);
}

void CrashWatch::Crashed(ComponentKind kind) {
  Component& component = components_[kind];
  component.AlarmState = AlarmState::Trouble;
  freezeWatch_.End(kind);
  // Without an id nothing was launched: what runs by that name is somebody else's, to be adopted.
  if (component.ProcessId != 0) {
    processes_.KillProcessesByName(controls_.executables[kind].Text());
  }
  ShowLastFailure(controls_.lastFailure, kind, clock_.Now());
  Tell(kind);
  component.ProcessId = 0;
  if (!upgradeTakesOver || !upgradeTakesOver(kind)) Restart(kind);
}

void CrashWatch::Tell(ComponentKind kind) {
  const std::string server = std::string(NameOf(kind)) + " Server";
  const std::string text = server + " crashed, restarting...";
  log_.LogStatus(text, kAlert);
  events_.Report(LauncherEvent::Crashed, kind, text);
  if (!loops_[kind].Died(tickClock_.Milliseconds())) return;
  events_.Report(
      LauncherEvent::CrashLoop, kind,
      server + " crashed " + std::to_string(CrashLoop::kDeaths) + " times within five minutes!");
}

void CrashWatch::Restart(ComponentKind kind) {
  if (kind == ComponentKind::Map) MapAutokillRestart();
  startStop_.StartComponent(kind);
}

void CrashWatch::MapAutokillRestart() {
  if (!controls_.mapRestartsAll.Checked()) return;
  log_.LogStatus("Map Server Autokill: Closing Components...", kNotice);
  for (ComponentKind kind : {ComponentKind::Char, ComponentKind::Login}) {
    if (components_[kind].RunningHandle != 0) StopAndStart(kind);
  }
}

void CrashWatch::RestartRunning() {
  const bool anyRuns = std::any_of(components_.begin(), components_.end(),
                                   [](const Component& c) { return c.RunningHandle != 0; });
  if (anyRuns) log_.LogStatus("Restarting Server", kNotice);
  for (ComponentKind kind : kComponents) {
    if (components_[kind].RunningHandle != 0) StopAndStart(kind);
  }
}

void CrashWatch::StopAndStart(ComponentKind kind) {
  startStop_.StopComponent(kind);
  startStop_.StartComponent(kind);
}

}  // namespace tarvo
