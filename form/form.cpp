#include "form/form.h"

#include <iterator>
#include <string>

#include "form/status_colours.h"

namespace tarvo {

StatusPage::StatusPage() : RTLog({std::begin(kLogColours), std::end(kLogColours)}) {
  for (CommandButton& button : bStart) button.SetCaption("Start");
  bStart[kStartAllButton].SetCaption("Start All");
  bStart[kStartAllButton].SetToolTip("Start all servers");
  bStart[kStopAllButton].SetCaption("Stop All");
  bStart[kStopAllButton].SetToolTip("Stop all servers");
}

ServersPage::ServersPage() {
  for (ComponentKind kind : kComponents) {
    for (const char* priority : {"V-Low", "Low", "Norm", "High", "V-High"}) {
      Prior[kind].AddItem(priority);
    }
    TTO[kind].SetText("15");
    const std::string tip =
        std::string("When freeze detected, how many time will wait before kill and restart ") +
        WordOf(kind) + " server";
    chkAK[IndexOf(kind)].SetToolTip(tip);
    TTO[kind].SetToolTip(tip);
    TTO[kind].SetEnabled(false);
  }
  for (const char* item :
       {"Everything", "Errors & Warn & Extra", "Errors & Warnings", "Only Errors"}) {
    LogH.AddItem(item);
  }
  LogH.SetToolTip("What status messages will be saved in the log file?");
  WLog.SetToolTip("Save status in log file?");
  SMinimized.SetToolTip("Hide the main window at start?");
  cmdCheckUp.SetCaption("Check-up...");
  cmdCheckUp.SetToolTip("What keeps this server root from working?");
  Command1.SetCaption("Unload launcher only...");
  chkEvents.SetToolTip(
      "Start on-event.cmd of the server folder, with this launcher's rights, when a server starts, "
      "crashes, freezes or stops?");
}

namespace {

constexpr std::size_t kLongestBound = 9;
constexpr int kLastHour = 23;
constexpr int kLastMinute = 59;

void PrepareCalendar(RandomizerPage& page) {
  page.lstDay.AddItems({"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"});
  page.ScrollTime[0].SetRange(0, kLastHour);
  page.ScrollTime[1].SetRange(0, kLastMinute);
  for (TextBox& box : page.txt_Time) {
    box.SetText("00");
    box.SetMaxLength(2);
  }
  page.cmbRstrt.AddItems({"Yes", "No"});
  page.lstDay.SetToolTip("The day of the week on which the settings are drawn anew");
  for (std::size_t i = 0; i < page.txt_Time.size(); ++i) {
    const char* const part = i == 0 ? "The hour, 00 to 23" : "The minute, 00 to 59";
    page.txt_Time[i].SetToolTip(part);
    page.ScrollTime[i].SetToolTip(part);
  }
  page.cmbRstrt.SetToolTip("Restart the running servers, so that they read the new values?");
  page.cmdCalendar[0].SetToolTip("Add this day and time to the calendar");
  page.cmdCalendar[1].SetToolTip("Remove the selected entry from the calendar");
  page.lstDTRands.SetToolTip("The days and times of the calendar");
}

}  // namespace

RandomizerPage::RandomizerPage() {
  cmdParam.SetToolTip("A setting of conf\\battle_athena.conf that holds a number");
  rIni.SetMaxLength(kLongestBound);
  rIni.SetToolTip("The smallest value that the setting can get");
  rEnd.SetMaxLength(kLongestBound);
  rEnd.SetToolTip("The greatest value that the setting can get");
  rAdd[0].SetCaption("Update");
  rAdd[0].SetToolTip("Give the setting this range");
  rAdd[1].SetCaption("Remove");
  rAdd[1].SetToolTip("Take the selected range off the list");
  lstRnd.SetToolTip("The settings that get random values, each with its range");
  Command2.SetCaption("Randomize Now!");
  Command2.SetToolTip("Draw every setting of the list anew, at once");
  opt_Rnd[0].SetToolTip("Draw them at each start of the map server, within the two limits");
  opt_Rnd[1].SetToolTip("Draw them with \"Randomize Now!\" only");
  opt_Rnd[2].SetToolTip("Draw them at the days and times of the calendar");
  for (TextBox& box : txtMxD) box.SetText("1");
  txtMxD[0].SetToolTip("How many map starts draw new values within an hour of the day");
  txtMxD[1].SetToolTip("How many map starts draw new values on a day of the week");
  PrepareCalendar(*this);
}

UpgradePage::UpgradePage() {
  for (ComponentKind kind : kComponents) {
    CommandButton& browse = cmd_nBrowse[kind];
    browse.SetCaption("Browse...");
    browse.SetToolTip(std::string("Choose the new ") + WordOf(kind) + " server");
  }
  optMode[0].SetToolTip("Upgrade only when \"Upgrade Now!\" is pressed");
  optMode[1].SetToolTip("Upgrade when the map server crashes and a new executable is there");
  optMode[2].SetToolTip("Upgrade when any server crashes and a new executable is there");
  chk_Opts[0].SetChecked(true);
  chk_Opts[0].SetToolTip("Keep a dated copy of the old executables in the folder LBackup");
  chk_Opts[1].SetToolTip("Upgrade only when all three executables are new");
  chk_Opts[2].SetToolTip("Select \"Manual\" as soon as an upgrade is done");
  UpdateNow.SetCaption("Upgrade Now!");
  UpdateNow.SetToolTip("Replace the three executables now; servers that run are restarted");
}

CheckUpView::CheckUpView() {
  cmdRepair.SetCaption("Repair...");
  cmdRepair.SetToolTip("Give conf files line ends of Windows; the old files are kept");
  cmdRepair.SetEnabled(false);
  cmdCopy.SetCaption("Copy");
  cmdCopy.SetToolTip("Copy all findings to the clipboard (Ctrl+C)");
  cmdAgain.SetCaption("Check again");
  cmdCopy.onClick = [this] { window.Copy(); };
}

Timers::Timers(TimerQueue& queue)
    : CrashWatch{{{{queue, "LCtrl", 5000}, {queue, "CCtrl", 5000}, {queue, "MCtrl", 5000}}}},
      Preparation{{{{queue, "PrepL", 3000}, {queue, "PrepC", 5000}, {queue, "PrepM", 10000}}}},
      Probe{{{{queue, "TTL", 10000}, {queue, "TTC", 10000}, {queue, "TTM", 10000}}}},
      Reprobe{{{{queue, "TLogin", 2000}, {queue, "TChar", 2000}, {queue, "TMap", 2000}}}},
      Mem(queue, "Mem", 5000, true),
      tmrAlarma(queue, "tmrAlarma", 2000, true),
      tmr_Calendar(queue, "tmr_Calendar", 15000),
      tmrEvents(queue, "tmrEvents", 500),
      tmrCheckUp(queue, "tmrCheckUp", 1000) {}

}  // namespace tarvo
