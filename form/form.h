#pragma once

#include <array>

#include "core/start_buttons.h"
#include "form/randomizer_page.h"
#include "form/upgrade_page.h"
#include "support/per_component.h"
#include "toolkit/controls.h"
#include "toolkit/main_window.h"
#include "toolkit/rich_text_view.h"
#include "toolkit/strip.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// What is seen around the pages, whichever page is shown.
struct Frame {
  Frame() { window.SetTitle("Tarvo Launcher"); }

  MainWindow window;
  TabView SSTab1;
  Label SName;              ///< The server's name.
  Label lblErr;             ///< After "Last failure:": which component failed last, and when.
  Label lblMemory;          ///< After "Free Memory:".
  PerComponent<Light> Sem;  ///< Status lights.
  PerComponent<StatusStrip> Strip;  ///< Beside each light: its component's last hour.
};

/// First page: what the servers do, and the buttons that start and stop them.
struct StatusPage {
  StatusPage();

  RichTextView RTLog;
  /// 0 to 2: start or stop one component. `kStartAllButton`, `kStopAllButton`: all of them.
  std::array<CommandButton, 5> bStart;
};

/// The check box after those of the components.
inline constexpr std::size_t kAutokillOfAll = kComponentCount;

/// Second page: the servers' settings and the launcher's own.
struct ServersPage {
  ServersPage();

  PerComponent<DropDownList> Exes;
  PerComponent<DropDownList> Prior;
  PerComponent<CheckBox> chkAutoStart;
  /// 0 to 2: freeze autokill of a component. `kAutokillOfAll`: a map autokill restarts all.
  std::array<CheckBox, 4> chkAK;
  PerComponent<TextBox> TTO;  ///< Seconds that a frozen component gets to recover.
  OptionGroup opt_ShowWin;    ///< Show or hide a component's own window.
  CheckBox WLog;
  DropDownList LogH;
  CheckBox Check2;  ///< Start with Windows.
  CheckBox SMinimized;
  CommandButton Command1;  ///< Unload the launcher only.
};

/// The interval timers that carry all supervision. They are named as in the operator's documents.
struct Timers {
  explicit Timers(TimerQueue& queue);

  PerComponent<Timer> CrashWatch;   ///< `LCtrl`, `CCtrl`, `MCtrl`, 5000 ms.
  PerComponent<Timer> Preparation;  ///< `PrepL`, `PrepC`, `PrepM`: grace after a start.
  PerComponent<Timer> Probe;        ///< `TTL`, `TTC`, `TTM`, interval from the settings.
  PerComponent<Timer> Reprobe;      ///< `TLogin`, `TChar`, `TMap`: of a frozen one, 2000 ms.
  Timer Mem;                        ///< Memory read-out, 5000 ms, always on.
  Timer tmrAlarma;                  ///< Status lights, 2000 ms, always on.
  Timer tmr_Calendar;               ///< Randomize calendar, 15000 ms.
};

/// The whole form: one struct per page, its members named as the operator's controls are.
struct Form {
  explicit Form(TimerQueue& queue) : timers(queue) {}

  Frame frame;
  StatusPage status;
  ServersPage servers;
  RandomizerPage randomizer;
  UpgradePage upgrade;
  Timers timers;
};

}  // namespace tarvo
