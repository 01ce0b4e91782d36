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
  const std::string names[] = {"login", "char", "map"};
  for (ComponentKind kind : kComponents) {
    for (const char* priority : {"V-Low", "Low", "Norm", "High", "V-High"}) {
      Prior[kind].AddItem(priority);
    }
    TTO[kind].SetText("15");
    const std::string tip =
        "When freeze detected, how many time will wait before kill and restart " +
        names[IndexOf(kind)] + " server";
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
  Command1.SetCaption("Unload launcher only...");
}

Timers::Timers(TimerQueue& queue)
    : CrashWatch{{{{queue, "LCtrl", 5000}, {queue, "CCtrl", 5000}, {queue, "MCtrl", 5000}}}},
      Preparation{{{{queue, "PrepL", 3000}, {queue, "PrepC", 5000}, {queue, "PrepM", 10000}}}},
      Probe{{{{queue, "TTL", 10000}, {queue, "TTC", 10000}, {queue, "TTM", 10000}}}},
      Reprobe{{{{queue, "TLogin", 2000}, {queue, "TChar", 2000}, {queue, "TMap", 2000}}}},
      Mem(queue, "Mem", 5000, true),
      tmrAlarma(queue, "tmrAlarma", 2000, true),
      tmr_Calendar(queue, "tmr_Calendar", 15000) {}

}  // namespace tarvo
