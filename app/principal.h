#pragma once

#include <cstdint>
#include <string>

#include "app/all_settings.h"
#include "checkup/check_up_window.h"
#include "core/component.h"
#include "core/handed_settings.h"
#include "core/launcher_events.h"
#include "core/patience.h"
#include "core/per_user_registry.h"
#include "core/process_control.h"
#include "core/restart_state.h"
#include "core/server_root.h"
#include "core/settings_store.h"
#include "core/start_stop.h"
#include "core/status_log.h"
#include "desktop/frm_sys_tray.h"
#include "desktop/last_hour.h"
#include "desktop/status_picture.h"
#include "desktop/tray_menu.h"
#include "desktop/window_options.h"
#include "events/event_script.h"
#include "form/bindings.h"
#include "outside/command_boxes.h"
#include "outside/command_desk.h"
#include "outside/state_watch.h"
#include "platform/machine.h"
#include "randomizer/randomizer.h"
#include "supervision/crash_watch.h"
#include "supervision/freeze_watch.h"
#include "supervision/port_probe.h"
#include "supervision/status_lights.h"
#include "toolkit/event_dispatch.h"
#include "upgrade/component_upgrade.h"
#include "upgrade/upgrade_settings.h"
#include "xmldoc/rules/letter_case.h"

namespace tarvo {

/// Exit codes of the program.
inline constexpr int kExitNormal = 0;
inline constexpr int kExitFault = 1;    ///< A fault of the run time ended the program.
inline constexpr int kExitRefused = 2;  ///< It could not start here; a message box has said why.

/// The main window object: it owns the form, the subsystems and the state, and wires the events of
/// the one to the operations of the others. Events reach it only through its dispatch.
class Principal {
 public:
  explicit Principal(const Machine& machine);
  Principal(const Principal&) = delete;
  Principal& operator=(const Principal&) = delete;

  /// Starts the launcher: error dialogs are turned off, for its servers too, and its own folder
  /// becomes the current one. A second one in the same root shows the first one's window and ends,
  /// or says why it cannot; otherwise `Form_Load` runs, and the window is shown unless it starts
  /// minimized. Call it once, before any other event, when the native window exists;
  /// `nativeWindow` is its handle.
  void Start(std::intptr_t nativeWindow);

  Form& TheForm() { return form_; }
  TimerQueue& TheTimers() { return timers_; }
  EventDispatch& Dispatch() { return dispatch_; }
  StatusLog& TheLog() { return log_; }
  LauncherEvents& TheEvents() { return events_; }
  const ComponentTable& Components() const { return components_; }

  /// The name under which the machine knows this root's one launcher.
  const std::string& InstanceName() const { return instanceName_; }

 private:
  void WireControls();
  void WireTimers();
  void WireUpgrade();
  void WireCommands();
  void WireRandomizer();
  void WireEvents();
  void WireCheckUp();

  void Form_Load();
  void Form_Unload(bool& cancel);
  void RefuseToClose();
  void Form_Resize();
  void Command1_Click();
  void Form_EndSession();
  void OpenLogFile();
  void RestoreWindowPlace();
  void SaveSettings(SettingsStore& store);

  void TakeOver();
  void Resume();
  void NoteUnderControl(ComponentKind kind);
  void OrderRestart();
  void KeepOrder();

  void tmrAlarma_Timer();
  IconHandle imgIcon(int code);

  void MoveIntoOwnFolder();
  bool StartNetworking();
  bool LoadSettings();
  void LogConfiguration();
  void LookForRunningComponents();
  void AutoStart();
  void LoadRandomizer();
  void RefuseToStart(const std::string& reason);
  void LeaveToTheFirst();
  void ShowFault(const RuntimeError& fault);

  Machine machine_;
  CommandBoxes boxes_;  ///< Every box of the launcher goes through it.
  LettersInUse letters_;
  PerUserRegistry perUserRegistry_;
  ServerRoot root_;
  const std::string instanceName_;
  HandedSettings registry_;
  SettingsStore store_;
  EventDispatch dispatch_;
  TimerQueue timers_;
  Form form_;
  ComponentTable components_;
  StatusLog log_;
  LauncherEvents events_;
  LogFile logFile_;
  LauncherSettings settings_;
  ProcessControl processes_;
  StartStop startStop_;
  PortProbe probe_;
  FreezeWatch freezeWatch_;
  CrashWatch crashWatch_;
  StatusLights lights_;
  WindowOptions windowOptions_;
  StartUpEntry startUpEntry_;
  LastHour lastHour_;
  StatusIcons statusIcons_;
  frmSysTray tray_;
  TrayMenu trayMenu_;
  UpgradeSettings upgradeSettings_;
  ComponentUpgrade upgrade_;
  PatientReplacer patientFiles_;
  RandomizerSettings randomizerSettings_;
  Randomizer randomizer_;
  EventSettings eventSettings_;
  EventScript eventScript_;
  StateWatch states_;
  CommandDesk commands_;
  CheckUp checkUp_;
  CheckUpWindow checkUpWindow_;
  bool componentsFoundInMemory_ = false;
  bool refusingToClose_ = false;
  std::optional<RestartState> takenOver_;  ///< From a launcher that died of a fault of its own.
  RestartState restartState_;
  bool settingsChangedByTick_ = false;  ///< By an upgrade, since they were last collected.
  RestartState keptState_;              ///< What the order was made from.
  RestartOrder restartOrder_;
};

}  // namespace tarvo
