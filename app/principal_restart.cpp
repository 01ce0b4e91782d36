// How the launcher comes back after a fault of its own: what it hands on, and what it takes over.

#include "app/principal.h"

namespace tarvo {

void Principal::TakeOver() {
  takenOver_ = RestartStateOf(machine_.selfRestart.Arguments());
  if (takenOver_) registry_.Take(takenOver_->settings);
}

/// What was under control is so again, auto start or not; what the operator had stopped stays
/// stopped.
void Principal::Resume() {
  form_.frame.window.SetState(takenOver_->minimized ? WindowState::Minimized : WindowState::Normal);
  log_.LogStatus("Attention!, the launcher was restarted after a fault of its own.", kAlert);
  for (ComponentKind kind : kComponents) {
    // The settings choose the first executable whose name contains the stored text.
    form_.servers.Exes[kind].Select(components_[kind].storedExecutable);
  }
  for (ComponentKind kind : kComponents) {
    if (takenOver_->underControl[kind]) startStop_.StartComponent(kind);
  }
}

/// Kept at once: the event may start others and die of it. A component's release counts only from
/// the end of the event on, since an upgrade or a restart stops what it is about to start again.
void Principal::NoteUnderControl(ComponentKind kind) {
  restartState_.underControl[kind] = true;
  KeepOrder();
}

void Principal::OrderRestart() {
  for (ComponentKind kind : kComponents) {
    restartState_.underControl[kind] = form_.timers.CrashWatch[kind].Enabled();
  }
  restartState_.minimized = form_.frame.window.State() == WindowState::Minimized;
  // Ticks are many, and but for an upgrade none changes what the operator has set.
  if (!timers_.Ticking() || settingsChangedByTick_) {
    settingsChangedByTick_ = false;
    CollectedSettings settings;
    SettingsStore store(settings, root_.SettingsKey());
    SaveSettings(store);
    restartState_.settings = settings.Settings();
  }
  KeepOrder();
}

void Principal::KeepOrder() {
  const bool ending = form_.frame.window.Ended() || dispatch_.Closed();
  const std::string logFolder =
      !ending && form_.servers.WLog.Checked() ? root_.AppFolder() : std::string();
  if (ending == restartOrder_.arguments.empty() && logFolder == restartOrder_.logFolder &&
      restartState_ == keptState_) {
    return;
  }
  keptState_ = restartState_;
  restartOrder_ = {ending ? std::string() : ArgumentsOf(restartState_), logFolder};
  machine_.selfRestart.Keep(restartOrder_);
}

}  // namespace tarvo
