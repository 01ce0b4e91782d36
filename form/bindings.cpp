#include "form/bindings.h"

#include "form/status_colours.h"

namespace tarvo {
namespace {

/// The three of a control array that belong to the components; any further one is for all of them.
template <class Type, std::size_t kCount>
std::span<Type, kComponentCount> OfComponents(std::array<Type, kCount>& controls) {
  return std::span(controls).template first<kComponentCount>();
}

}  // namespace

SettingsControls BindSettings(Form& form) {
  ServersPage& page = form.servers;
  return {.executables = page.Exes,
          .priorities = page.Prior,
          .autoStart = page.chkAutoStart,
          .autokill = OfComponents(page.chkAK),
          .autokillTimes = page.TTO,
          .mapRestartsAll = page.chkAK[kAutokillOfAll],
          .writesLogFile = page.WLog,
          .logFileLevels = page.LogH,
          .startsMinimized = page.SMinimized,
          .probe = form.timers.Probe,
          .pages = form.frame.SSTab1,
          .window = form.frame.window};
}

StartStopControls BindStartStop(Form& form) {
  return {.executables = form.servers.Exes,
          .priorities = form.servers.Prior,
          .autokillTimes = form.servers.TTO,
          .buttons = OfComponents(form.status.bStart),
          .started = kStartedColour,
          .stopped = kStoppedColour,
          .lights = form.frame.Sem,
          .pages = form.frame.SSTab1,
          .crashWatch = form.timers.CrashWatch,
          .preparation = form.timers.Preparation};
}

FreezeWatchControls BindFreezeWatch(Form& form) {
  return {.preparation = form.timers.Preparation,
          .probe = form.timers.Probe,
          .reprobe = form.timers.Reprobe,
          .autokill = OfComponents(form.servers.chkAK),
          .autokillTimes = form.servers.TTO,
          .executables = form.servers.Exes,
          .lastFailure = form.frame.lblErr};
}

StateControls BindState(Form& form) {
  return {.crashWatch = form.timers.CrashWatch,
          .preparation = form.timers.Preparation,
          .probe = form.timers.Probe,
          .reprobe = form.timers.Reprobe,
          .autokill = OfComponents(form.servers.chkAK),
          .serverName = form.frame.SName,
          .lastUpgrade = form.upgrade.oPath[kLastUpgrade],
          .calendarEntries = form.randomizer.lstDTRands,
          .calendarTimer = form.timers.tmr_Calendar};
}

CommandControls BindCommands(Form& form) {
  return {.startButtons = form.status.bStart,
          .randomize = form.randomizer.Command2,
          .upgrade = form.upgrade.UpdateNow,
          .unload = form.servers.Command1,
          .window = form.frame.window};
}

CrashWatchControls BindCrashWatch(Form& form) {
  return {.executables = form.servers.Exes,
          .mapRestartsAll = form.servers.chkAK[kAutokillOfAll],
          .lastFailure = form.frame.lblErr};
}

UpgradeSettingsControls BindUpgradeSettings(Form& form) {
  return {.newFiles = form.upgrade.nPath,
          .targets = OfComponents(form.upgrade.oPath),
          .lastUpgrade = form.upgrade.oPath[kLastUpgrade],
          .trigger = form.upgrade.optMode,
          .executables = form.servers.Exes};
}

UpgradeControls BindUpgrade(Form& form) {
  return {.newFiles = form.upgrade.nPath,
          .executables = form.servers.Exes,
          .options = form.upgrade.chk_Opts,
          .trigger = form.upgrade.optMode,
          .pages = form.frame.SSTab1,
          .window = form.frame.window};
}

EventScriptControls BindEventScript(Form& form) {
  return {.runs = form.servers.chkEvents,
          .serverName = form.frame.SName,
          .timer = form.timers.tmrEvents};
}

CheckUpControls BindCheckUp(Form& form) {
  return {.button = form.servers.cmdCheckUp,
          .window = form.checkUp.window,
          .summary = form.checkUp.lblCheck,
          .findings = form.checkUp.lstCheck,
          .repair = form.checkUp.cmdRepair,
          .again = form.checkUp.cmdAgain,
          .timer = form.timers.tmrCheckUp,
          .preparation = form.timers.Preparation,
          .executables = form.servers.Exes,
          .autokill = OfComponents(form.servers.chkAK),
          .autokillTimes = form.servers.TTO,
          .newFiles = form.upgrade.nPath,
          .writesLogFile = form.servers.WLog};
}

RandomizerControls BindRandomizer(RandomizerPage& page, Timer& calendarTimer) {
  return {.parameters = {.settings = page.cmdParam,
                         .least = page.rIni,
                         .greatest = page.rEnd,
                         .ranges = page.lstRnd},
          .rangeButtons = page.rAdd,
          .now = page.Command2,
          .mode = page.opt_Rnd,
          .limits = page.txtMxD,
          .calendar = {.days = page.lstDay,
                       .scrolls = page.ScrollTime,
                       .times = page.txt_Time,
                       .restarts = page.cmbRstrt,
                       .entries = page.lstDTRands,
                       .ranges = page.lstRnd},
          .calendarButtons = page.cmdCalendar,
          .calendarTimer = calendarTimer};
}

}  // namespace tarvo
