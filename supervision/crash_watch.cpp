#include "supervision/crash_watch.h"

#include <algorithm>
#include <string>

#include "supervision/last_failure.h"

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
  Timers& timers = form_.timers;
  for (Timer* timer : {&timers.Reprobe(kind), &timers.Probe(kind), &timers.Preparation(kind)}) {
    timer->SetEnabled(false);
  }
  // Without an id nothing was launched: what runs by that name is somebody else's, to be adopted.
  if (component.ProcessId != 0) {
    processes_.KillProcessesByName(form_.servers.Exes[kind].Text());
  }
  ShowLastFailure(form_.frame.lblErr, kind, clock_.Now());
  log_.LogStatus(std::string(NameOf(kind)) + " Server crashed, restarting...", kAlert);
  component.ProcessId = 0;
  const bool upgraded = TriggerHolds(kind) && runUpgrade(static_cast<int>(IndexOf(kind)) + 1) <= 0;
  if (!upgraded) Restart(kind);
}

bool CrashWatch::TriggerHolds(ComponentKind kind) const {
  if (!runUpgrade || UpgradeInProgress) return false;
  const OptionGroup& optMode = form_.upgrade.optMode;
  return optMode[2].Selected() || (kind == ComponentKind::Map && optMode[1].Selected());
}

void CrashWatch::Restart(ComponentKind kind) {
  if (kind == ComponentKind::Map) MapAutokillRestart();
  startStop_.StartComponent(kind);
}

void CrashWatch::MapAutokillRestart() {
  if (!form_.servers.chkAK[3].Checked()) return;
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
