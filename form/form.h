#pragma once

#include <array>
#include <functional>

#include "core/start_stop.h"
#include "support/component_kind.h"
#include "toolkit/controls.h"
#include "toolkit/main_window.h"
#include "toolkit/rich_text_view.h"
#include "toolkit/side_window.h"
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

  /// The native window is complete and, unless it began hidden, painted. Raised once.
  std::function<void()> onComplete;
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
  CommandButton cmdCheckUp;
  CommandButton Command1;  ///< Unload the launcher only.
  CheckBox chkEvents;      ///< Run on-event.cmd at events.
};

/// Warns above everything else on the page.
inline constexpr char kRandomizerWarning[] =
    "Caution!, this functions are only for Advanced Administrators!";

/// Third page: which of the map server's settings get random values, and when.
struct RandomizerPage {
  RandomizerPage();

  // The group "Server Configuration".
  DropDownList cmdParam;  ///< The settings of the server's file, in its order.
  TextBox rIni;           ///< "Min. Value:" of the chosen setting, at most 9 characters.
  TextBox rEnd;           ///< "Max. Value:", likewise.
  std::array<CommandButton, 2> rAdd;  ///< 0 "Update", 1 "Remove".
  ListBox lstRnd;                     ///< The ranges: "base_exp_rate:100 to 300".
  CommandButton Command2;             ///< "Randomize Now!".

  OptionGroup opt_Rnd;            ///< 0 "Map Start", 1 "Manual", 2 "Program".
  std::array<TextBox, 2> txtMxD;  ///< 0: limit per hour. 1: limit per day.

  // The group "Randomize Calendar  (program  mode)".
  ListBox lstDay;                            ///< "Mon" to "Sun".
  std::array<ScrollBar, 2> ScrollTime;       ///< 0: hour, 0 to 23. 1: minute, 0 to 59.
  std::array<TextBox, 2> txt_Time;           ///< The same as texts of two digits.
  DropDownList cmbRstrt;                     ///< 0 "Yes", 1 "No": restart the servers?
  std::array<CommandButton, 2> cmdCalendar;  ///< 0 adds an entry, 1 removes one; pictures only.
  ListBox lstDTRands;                        ///< The entries: "Mon 08:30 restart=Y".
};

/// The label after those of the components.
inline constexpr std::size_t kLastUpgrade = kComponentCount;

/// Fourth page: the newly built executables, the ones that they replace, and when it happens.
struct UpgradePage {
  UpgradePage();

  PerComponent<PathBox> nPath;              ///< "FROM Components": the new executables.
  PerComponent<CommandButton> cmd_nBrowse;  ///< Picks one of them in a file dialog.
  /// 0 to 2: "TO Components", the executables that will be replaced. `kLastUpgrade`: after "Last
  /// Upgrade:".
  std::array<Label, 4> oPath;
  OptionGroup optMode;  ///< "Upgrade Trigger:" 0 "Manual", 1 "Map crash", 2 "Any crash".
  /// 0 "Make Backup", checked at the start. 1 "Only full upgrades". 2 "Set to "Manual" after
  /// Upgrade".
  std::array<CheckBox, 3> chk_Opts;
  CommandButton UpdateNow;  ///< "Upgrade Now!"
};

/// The window of the check-up, beside the main one.
struct CheckUpView {
  CheckUpView();

  SideWindow window{"Check-up"};
  ListBox lstCheck;  ///< Three lines for each finding.
  Label lblCheck;    ///< How many there are.
  CommandButton cmdRepair;
  CommandButton cmdCopy;
  CommandButton cmdAgain;
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
  Timer tmrEvents;                  ///< Starts and ends of on-event.cmd, 500 ms.
  Timer tmrCheckUp;                 ///< Check-up, while one goes on.
};

/// The whole form: one struct per page, its members named as the operator's controls are.
struct Form {
  explicit Form(TimerQueue& queue) : timers(queue) {}

  Frame frame;
  StatusPage status;
  ServersPage servers;
  RandomizerPage randomizer;
  UpgradePage upgrade;
  CheckUpView checkUp;
  Timers timers;
};

}  // namespace tarvo
