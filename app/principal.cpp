#include "app/principal.h"

#include <algorithm>

#include "app/check_up_command.h"
#include "app/version.h"
#include "core/server_configuration.h"
#include "form/log_screen.h"
#include "supervision/memory_watch.h"
#include "supervision/probe_failure.h"
#include "support/number_text.h"
#include "toolkit/window_place.h"
#include "upgrade/upgrade_boxes.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kDefaultCheckInterval = 10000;
constexpr double kMillisecondsInSecond = 1000;
constexpr char kWindowPlace[] = "WindowPlace";
constexpr char kAlreadyRunning[] = "Tarvo Launcher is already running in this server root.";
constexpr char kWithMoreRights[] =
    "\r\n\r\nIt was started as administrator or by another user, so its window cannot be shown "
    "from "
    "here.";

}  // namespace

Principal::Principal(const Machine& machine)
    : machine_(machine),
      boxes_(machine.messageBoxes),
      letters_(machine.codePage),
      perUserRegistry_(machine.registry),
      root_(machine.executablePath, machine.codePage),
      instanceName_(InstanceNameOf(machine.realFolder, machine.codePage)),
      registry_(perUserRegistry_, root_.SettingsKey()),
      store_(registry_, root_.SettingsKey()),
      timers_(machine.tickClock),
      form_(timers_),
      log_(machine.localClock),
      logFile_(form_.servers.WLog, form_.servers.LogH, machine.fileAppender, machine.localClock,
               root_.AppFolder()),
      settings_(BindSettings(form_), components_, store_),
      processes_(machine.processes, machine.foreignWindows, machine.tickClock, machine.codePage,
                 machine.workingFolder, form_.servers.Exes, root_.AppFolder()),
      startStop_(BindStartStop(form_), components_, processes_, log_, events_, boxes_),
      probe_(machine.sockets),
      freezeWatch_(BindFreezeWatch(form_), components_, probe_, processes_, log_, events_,
                   machine.localClock, machine.tickClock),
      crashWatch_(BindCrashWatch(form_), components_, processes_, startStop_, freezeWatch_, log_,
                  events_, machine.localClock, machine.tickClock),
      lights_(form_.frame.Sem, components_),
      windowOptions_(components_, processes_),
      startUpEntry_(form_.servers.Check2, form_.frame.SName, registry_, store_, root_),
      lastHour_(form_.frame.Strip, components_, machine.tickClock),
      statusIcons_(machine.icons),
      tray_(machine.notificationArea, machine.codePage, dispatch_),
      trayMenu_(tray_, form_.frame.window, boxes_),
      upgradeSettings_(BindUpgradeSettings(form_), store_, root_, machine.fileDialog, boxes_),
      upgrade_({BindUpgrade(form_), components_, startStop_, log_, events_, upgradeSettings_,
                machine.fileInspection, PatientCopies(machine.fileCopies, machine.tickClock),
                machine.localClock, boxes_, root_.AppFolder()}),
      patientFiles_(machine.fileReplacer, machine.tickClock),
      randomizerSettings_(form_.randomizer.opt_Rnd, form_.randomizer.txtMxD, store_,
                          machine.localClock),
      randomizer_(BindRandomizer(form_.randomizer, form_.timers.tmr_Calendar), log_, events_, root_,
                  {machine.fileReader, patientFiles_, machine.eventLog, store_, machine.localClock,
                   machine.random, boxes_}),
      eventSettings_(form_.servers.chkEvents, store_),
      eventScript_(BindEventScript(form_), machine.scripts, machine.fileReader, machine.localClock,
                   machine.tickClock, root_.AppFolder()),
      states_({BindState(form_), components_, lights_, timers_, machine.localClock,
               machine.processes, machine.memoryStatus, kVersion, root_.AppFolder()}),
      commands_({BindCommands(form_), states_, boxes_, machine.answerLines, dispatch_, timers_,
                 machine.codePage, UpgradeBoxFor(kUpgradeDone, form_.upgrade.nPath)->text}),
      checkUp_(CheckUpPortsOf(machine), root_, machine.executablePath, machine.pathInCodePage),
      checkUpWindow_(BindCheckUp(form_), checkUp_,
                     LineEndRepair(machine.fileReader, machine.fileReplacer, machine.fileCopies,
                                   machine.localClock, machine.tickClock),
                     boxes_, machine.clipboard, root_) {
  log_.listeners = {[this](const LogLine& line) { ShowLine(form_.status.RTLog, line); },
                    [this](const LogLine& line) { logFile_.Take(line); }};
  WireControls();
  WireTimers();
  WireUpgrade();
  WireRandomizer();
  WireEvents();
  WireCommands();
  WireCheckUp();
}

void Principal::WireControls() {
  dispatch_.onFault = [this](const RuntimeError& fault) { ShowFault(fault); };
  dispatch_.onOwnFault = [this](OwnFault fault) { machine_.selfRestart.Die(fault); };
  // Under a message box the servers are watched on, and so is their state.
  dispatch_.onEnd = [this] { states_.Look(); };
  dispatch_.onQuiet = [this] {
    commands_.EndEvent();
    OrderRestart();
  };
  form_.frame.window.onResize = [this] { Form_Resize(); };
  form_.frame.window.onClose = [this] {
    bool cancel = false;
    Form_Unload(cancel);
    if (!cancel) form_.frame.window.End(kExitNormal);
  };
  form_.status.RTLog.onOpenFile = [this] { OpenLogFile(); };
  // A tick in between could start a server, or show a box that nobody answers any more.
  form_.frame.window.onSessionMayEnd = [this] { timers_.Hold(true); };
  form_.frame.window.onSessionGoesOn = [this] { timers_.Hold(false); };
  form_.frame.window.onEndSession = [this] { Form_EndSession(); };
  for (std::size_t i = 0; i < form_.status.bStart.size(); ++i) {
    form_.status.bStart[i].onClick = [this, i] { startStop_.bStart_Click(i); };
  }
  ServersPage& servers = form_.servers;
  for (ComponentKind kind : kComponents) {
    const std::size_t i = IndexOf(kind);
    servers.Prior[kind].onSelect = [this, kind] { startStop_.Prior_Click(kind); };
    servers.chkAK[i].onChange = [this, i] { settings_.chkAK_Click(i); };
    servers.TTO[kind].onChange = [this, kind] { TTO_Change(form_.servers.TTO[kind]); };
    servers.opt_ShowWin[i].onClick = [this, kind] { windowOptions_.opt_ShowWin_Click(kind); };
  }
  servers.Check2.onClick = [this] { startUpEntry_.Check2_Click(); };
  servers.Command1.onClick = [this] { Command1_Click(); };
  startStop_.cameUnderControl = [this](ComponentKind kind) { NoteUnderControl(kind); };
  startStop_.prepareFreezeWatch = [this](ComponentKind kind) { freezeWatch_.Prepare(kind); };
  startStop_.endFreezeWatch = [this](ComponentKind kind) { freezeWatch_.End(kind); };
}

void Principal::WireCheckUp() {
  checkUpWindow_.WireControls();
  form_.frame.onComplete = [this] { checkUpWindow_.BeginByItself(); };
}

void Principal::WireTimers() {
  Timers& timers = form_.timers;
  for (ComponentKind kind : kComponents) {
    timers.CrashWatch[kind].onTick = [this, kind] { crashWatch_.Check(kind); };
    timers.Preparation[kind].onTick = [this, kind] { freezeWatch_.Prepare(kind); };
    timers.Probe[kind].onTick = [this, kind] { freezeWatch_.ProbePeriodically(kind); };
    timers.Reprobe[kind].onTick = [this, kind] { freezeWatch_.ProbeAgain(kind); };
  }
  timers.Mem.onTick = [this] { ShowFreeMemory(machine_.memoryStatus, form_.frame.lblMemory); };
  timers.tmrAlarma.onTick = [this] { tmrAlarma_Timer(); };
}

void Principal::tmrAlarma_Timer() {
  lights_.Combine();
  tray_.SetIconHandle(imgIcon(lights_.StatusCode()));
  tray_.OfferAgain();
  lights_.Show();
  lastHour_.Note();
}

IconHandle Principal::imgIcon(int code) { return statusIcons_.For(StatesOfCode(code)); }

void Principal::WireUpgrade() {
  crashWatch_.upgradeTakesOver = [this](ComponentKind kind) {
    const bool upgraded = upgrade_.TakesOverCrash(kind);
    settingsChangedByTick_ = settingsChangedByTick_ || upgraded;
    return upgraded;
  };
  UpgradePage& page = form_.upgrade;
  for (ComponentKind kind : kComponents) {
    page.cmd_nBrowse[kind].onClick = [this, kind] {
      upgradeSettings_.cmd_nBrowse_Click(kind);
      MoveIntoOwnFolder();
    };
    page.nPath[kind].onDrop = [this, kind](const std::string& path) {
      upgradeSettings_.nPath_Drop(kind, path);
    };
    form_.servers.Exes[kind].onSelect = [this, kind] { upgradeSettings_.ShowTarget(kind); };
  }
  for (std::size_t i = 0; i < OptionGroup::Size(); ++i) {
    page.optMode[i].onClick = [this, i] { upgradeSettings_.optMode_Click(i); };
  }
  page.UpdateNow.onClick = [this] { upgrade_.UpdateNow_Click(); };
}

void Principal::WireRandomizer() {
  randomizer_.WireControls();
  startStop_.beforeMapServerStarts = [this] { randomizer_.TheGate().RandomizeOnMapStart(); };
  randomizer_.TheCalendar().restartRunning = [this] { crashWatch_.RestartRunning(); };
}

void Principal::WireEvents() {
  events_.listeners.push_back([this](const EventReport& report) { eventScript_.Note(report); });
  form_.timers.tmrEvents.onTick = [this] { eventScript_.Tick(); };
}

void Principal::WireCommands() {
  log_.listeners.emplace_back([this](const LogLine& line) { commands_.Hear(line); });
  events_.listeners.emplace_back([this](const EventReport& report) { states_.Hear(report); });
  states_.calendarRanLast = [this] { return randomizer_.TheCalendar().LastMinute(); };
  lights_.sentenceOf = [this](ComponentKind kind) { return SentenceOf(states_.ReportOf(kind)); };
  form_.frame.window.onMessage = [this](const std::string& message) { commands_.Receive(message); };
}

void Principal::Start(std::intptr_t nativeWindow) {
  dispatch_.Run([this, nativeWindow] {
    machine_.processes.TurnErrorDialogsOff();
    MoveIntoOwnFolder();
    if (!machine_.instanceLock.Acquire(InstanceName())) return LeaveToTheFirst();
    Form_Load();
    MainWindow& window = form_.frame.window;
    if (window.Ended()) return;
    machine_.instanceLock.Publish(InstanceName(), nativeWindow);
    ShowFreeMemory(machine_.memoryStatus, form_.frame.lblMemory);
    window.SetVisible(window.State() != WindowState::Minimized);
  });
  if (form_.frame.window.Ended()) dispatch_.Close();
}

void Principal::MoveIntoOwnFolder() { machine_.workingFolder.MoveInto(root_.WithSeparator()); }

void Principal::LeaveToTheFirst() {
  switch (machine_.instanceLock.ShowHolder(InstanceName())) {
    case HolderShown::Yes:
      return form_.frame.window.End(kExitNormal);
    case HolderShown::NoWindow:
      return RefuseToStart(kAlreadyRunning);
    case HolderShown::NotAllowed:
      return RefuseToStart(std::string(kAlreadyRunning) + kWithMoreRights);
  }
}

void Principal::Form_Load() {
  form_.frame.SSTab1.SetPage(1);
  TakeOver();
  if (!StartNetworking() || !LoadSettings()) return;
  LogConfiguration();
  log_.LogStatus("Launcher Ready!", kInfo);
  const std::string title = "[" + form_.frame.SName.Caption() + "] - Tarvo Launcher";
  tray_.SetToolTip(title);
  form_.frame.window.SetTitle(title);
  LookForRunningComponents();
  if (takenOver_) {
    Resume();
  } else {
    AutoStart();
  }
  LoadRandomizer();
  if (componentsFoundInMemory_) form_.frame.SSTab1.SetPage(0);
}

bool Principal::StartNetworking() {
  const std::int32_t version =
      SettingsStore(registry_, kSettingsKeyPrefix).Integer("Winsock", "&H202");
  const int code = machine_.sockets.Start(static_cast<std::uint16_t>(version));
  if (code != 0) RefuseToStart(WinsockErrorText(code));
  return code == 0;
}

bool Principal::LoadSettings() {
  const ConfigurationResult read =
      machine_.pathInCodePage
          ? ReadServerConfiguration(machine_.fileReader, machine_.fileDiagnosis, root_)
          : RefuseFolderOutsideCodePage();
  if (!read.refusal.empty()) {
    RefuseToStart(read.refusal);
    return false;
  }
  for (ComponentKind kind : kComponents) {
    components_[kind].endpoint = read.configuration.endpoints[kind];
  }
  form_.frame.SName.SetCaption(read.configuration.serverName.value_or(""));
  ListExecutables(machine_.folderLister, root_, form_.servers.Exes);
  // The settings may minimize the window, and then the icon is the only way back to it.
  tray_.Load("Tarvo Launcher", imgIcon(lights_.StatusCode()));
  RestoreWindowPlace();
  randomizer_.TheGate().SetCounters(
      LoadAll(settings_, startUpEntry_, randomizerSettings_, upgradeSettings_, eventSettings_));
  return true;
}

void Principal::RefuseToStart(const std::string& reason) {
  dispatch_.Close();
  boxes_.Ask({reason, BoxIcon::Critical});
  form_.frame.window.End(kExitRefused);
}

void Principal::LogConfiguration() {
  log_.LogStatus(std::string("Tarvo Launcher v.") + kVersion, kInfo);
  for (ComponentKind kind : kComponents) {
    const ComponentEndpoint& endpoint = components_[kind].endpoint;
    log_.LogStatus(std::string(NameOf(kind)) + " Server: " + endpoint.host + ":" +
                       std::to_string(endpoint.port),
                   kInfo);
  }
  for (ComponentKind kind : kComponents) {
    const std::uint32_t interval = form_.timers.Probe[kind].Interval();
    if (interval == kDefaultCheckInterval) continue;
    log_.LogStatus(std::string(NameOf(kind)) + " Check Interval: " +
                       ShortestDecimal(interval / kMillisecondsInSecond) + " seconds.",
                   kNotice);
  }
}

void Principal::LookForRunningComponents() {
  for (const DropDownList& chooser : form_.servers.Exes) {
    componentsFoundInMemory_ |= processes_.FindProcessByName(chooser.Text()) != 0;
  }
  if (componentsFoundInMemory_) {
    log_.LogStatus("Attention!, server components found in memory.", kNotice);
  }
}

void Principal::AutoStart() {
  const auto& boxes = form_.servers.chkAutoStart;
  if (std::all_of(boxes.begin(), boxes.end(), [](const CheckBox& box) { return box.Checked(); })) {
    startStop_.bStart_Click(kStartAllButton);
    return;
  }
  for (ComponentKind kind : kComponents) {
    // A tick during a refusal's message box may have ended the program.
    if (form_.frame.window.Ended()) return;
    if (boxes[kind].Checked()) startStop_.bStart_Click(IndexOf(kind));
  }
}

void Principal::LoadRandomizer() {
  if (form_.frame.window.Ended()) return;
  randomizer_.LoadRandomizerFiles();
  form_.randomizer.lstDay.SetListIndex(0);
  form_.randomizer.cmbRstrt.SetListIndex(0);
}

void Principal::OpenLogFile() {
  if (machine_.documents.Open(logFile_.FileOfToday())) return;
  boxes_.Ask(
      {"There is no log file of today yet.\r\n"
       "Check \"Save status in log file?\" on the page Servers to have one.",
       BoxIcon::Information});
}

void Principal::RestoreWindowPlace() {
  const auto place = PlaceOfText(store_.Text(kWindowPlace));
  if (place) form_.frame.window.SetStanding(*place);
}

void Principal::SaveSettings(SettingsStore& store) {
  SaveAll(store, settings_, startUpEntry_, randomizerSettings_, upgradeSettings_, eventSettings_);
  const auto& place = form_.frame.window.Standing();
  if (place) store.Write(kWindowPlace, TextOfPlace(*place));
}

void Principal::Form_Unload(bool& cancel) {
  const bool anyRuns = std::any_of(components_.begin(), components_.end(),
                                   [](const Component& c) { return c.ProcessId > 0; });
  if (anyRuns) {
    cancel = true;
    RefuseToClose();
    return;
  }
  tray_.Unload();
  SaveSettings(store_);
  machine_.sockets.Stop();
  eventScript_.StartLast();
}

/// Requests that come while the box is open are refused without another one.
void Principal::RefuseToClose() {
  if (refusingToClose_) return;
  refusingToClose_ = true;
  boxes_.Ask({"Please, stop servers before close this application"});
  refusingToClose_ = false;
}

/// Like a close, but servers that run do not prevent it: they are left to the system.
void Principal::Form_EndSession() {
  tray_.Unload();
  SaveSettings(store_);
  machine_.sockets.Stop();
  form_.frame.window.End(kExitNormal);
}

void Principal::Form_Resize() {
  MainWindow& window = form_.frame.window;
  window.SetVisible(window.State() != WindowState::Minimized);
}

void Principal::Command1_Click() {
  const Answer answer = boxes_.Ask(
      {"This option will stop the launcher without kill the server, is usefull to update the "
       "launcher version.\r\n"
       "When you start the launcher again, press Start and the components will be under control "
       "again.",
       BoxIcon::Exclamation, BoxButtons::YesNo, true});
  if (answer != Answer::Yes || form_.frame.window.Ended()) return;
  log_.LogStatus("Launcher unloaded from memory! (server still running)", kAlert);
  tray_.Unload();
  for (Component& component : components_) component.ProcessId = 0;
  SaveSettings(store_);
  eventScript_.StartLast();
  form_.frame.window.End(kExitNormal);
}

void Principal::ShowFault(const RuntimeError& fault) {
  tray_.Unload();
  std::string text =
      "Run-time error '" + std::to_string(fault.Number()) + "':\r\n\r\n" + fault.Description();
  if (!fault.Source().empty()) text += "\r\n\r\n" + fault.Source();
  machine_.selfRestart.Keep({});
  eventScript_.StartLast();
  boxes_.Ask({text, BoxIcon::Critical});
  form_.frame.window.End(kExitFault);
}

}  // namespace tarvo
