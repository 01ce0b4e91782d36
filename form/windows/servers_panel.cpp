#include "form/windows/pages.h"

#include <string>
#include "form/control_ids.h"

#include "toolkit/windows/button_widgets.h"
#include "toolkit/windows/field_widgets.h"
#include "toolkit/windows/label_widgets.h"

namespace tarvo {
namespace {

enum Column {
  kName,
  kExecutable,
  kPriority,
  kAutoStart,
  kAutokill,
  kTimeout,
  kSeconds,
  kWindow,
  kColumns
};
enum Row { kHeads, kFirstServer, kRestartAll = 4, kLogFile, kLauncher, kEvents, kRest };

using BoxKind = CheckWidget::Kind;

/// What differs between the rows of the table.
struct ServerTexts {
  const char* label;  ///< Its access key focuses the executable.
  char labelKey;
  const char* window;  ///< The option that shows and hides the server's window.
  char windowKey;
};

constexpr ServerTexts kTexts[] = {{"&Login", 'l', "Show Lo&gin", 'g'},
                                  {"&Char", 'c', "Show C&har", 'h'},
                                  {"&Map", 'm', "Show Ma&p", 'p'}};

void AddHeads(Panel& panel) {
  panel.Add<CaptionWidget>(Slot{kHeads, kExecutable}, "Executable");
  panel.Add<CaptionWidget>(Slot{kHeads, kPriority}, "Priority");
  panel.Add<CaptionWidget>(Slot{kHeads, kAutoStart}, "Auto start");
  panel.Add<CaptionWidget>(Slot{kHeads, kAutokill, 3}, "Freeze Autokill after");
  panel.Add<CaptionWidget>(Slot{kHeads, kWindow}, "Window");
}

void AddServer(Panel& panel, ServersPage& page, ComponentKind kind) {
  const std::size_t index = IndexOf(kind);
  const int number = static_cast<int>(index);
  const int row = kFirstServer + number;
  const ServerTexts& texts = kTexts[index];
  const std::string name = NameOf(kind);

  panel.Add<CaptionWidget>(Slot{row, kName}, texts.label);
  auto& executable = panel.Add<ListWidget>(Slot{row, kExecutable}, NumberOf("Exes", number),
                                           page.Exes[kind], 120, 120);
  executable.SetAccessKey(texts.labelKey);
  executable.SetReasonWhenDisabled("Stop the " + name + " server to choose another executable.");
  panel.Add<HiddenNameWidget>({}, name + " priority");
  panel.Add<ListWidget>(Slot{row, kPriority}, NumberOf("Prior", number), page.Prior[kind], 76, 160);
  panel.Add<CheckWidget>(Slot{row, kAutoStart, 1, false}, NumberOf("chkAutoStart", number),
                         page.chkAutoStart[kind], name + ": Auto start", BoxKind::BoxAlone);
  panel.Add<CheckWidget>(Slot{row, kAutokill, 1, false}, NumberOf("chkAK", number),
                         page.chkAK[index], name + ": Freeze Autokill after", BoxKind::BoxAlone);
  panel.Add<HiddenNameWidget>({}, name + ": Freeze Autokill after, seconds");
  panel
      .Add<TextWidget>(Slot{row, kTimeout, 1, false}, NumberOf("TTO", number), page.TTO[kind],
                       "000000")
      .SetReasonWhenDisabled("Check \"Freeze Autokill after\" to change the time.");
  panel.Add<CaptionWidget>(Slot{row, kSeconds}, "sec.");
  panel
      .Add<OptionWidget>(Slot{row, kWindow}, NumberOf("opt_ShowWin", number),
                         page.opt_ShowWin[index], texts.window)
      .SetAccessKey(texts.windowKey);
}

void AddLauncher(Panel& panel, ServersPage& page) {
  panel
      .Add<CheckWidget>(Slot{kRestartAll, kAutokill, kColumns - kAutokill, false},
                        NumberOf("chkAK", kAutokillOfAll), page.chkAK[kAutokillOfAll],
                        "&Restart All components with Map Autokill")
      .SetAccessKey('r');
  panel.Add<CaptionWidget>(Slot{kLogFile, kName}, "Log file");
  panel
      .Add<CheckWidget>(Slot{kLogFile, kExecutable, 1, false}, NumberOf("WLog"), page.WLog,
                        "&Save status in log file?")
      .SetAccessKey('s');
  panel.Add<HiddenNameWidget>({}, "Status messages saved in the log file");
  panel.Add<ListWidget>(Slot{kLogFile, kPriority, 3, false}, NumberOf("LogH"), page.LogH, 120, 240);
  panel
      .Add<ButtonWidget>(Slot{kLogFile, kSeconds, kColumns - kSeconds}, NumberOf("cmdCheckUp"),
                         page.cmdCheckUp)
      .SetAccessKey('k');
  panel.Add<CaptionWidget>(Slot{kLauncher, kName}, "Launcher");
  panel
      .Add<CheckWidget>(Slot{kLauncher, kExecutable, 1, false}, NumberOf("Check2"), page.Check2,
                        "Start with &Windows")
      .SetAccessKey('w');
  panel
      .Add<CheckWidget>(Slot{kLauncher, kPriority, 3, false}, NumberOf("SMinimized"),
                        page.SMinimized, "Start Mi&nimized")
      .SetAccessKey('n');
  panel
      .Add<ButtonWidget>(Slot{kLauncher, kSeconds, kColumns - kSeconds}, NumberOf("Command1"),
                         page.Command1)
      .SetAccessKey('u');
  panel.Add<CaptionWidget>(Slot{kEvents, kName}, "Events");
  panel
      .Add<CheckWidget>(Slot{kEvents, kExecutable, 2, false}, NumberOf("chkEvents"), page.chkEvents,
                        "Run on-event.cmd at &events")
      .SetAccessKey('e');
}

}  // namespace

void FillServers(Panel& panel, ServersPage& page) {
  panel.SetColumns({{12}, {12, true}, {12}, {20}, {20}, {4}, {4}, {24}});
  panel.SetRows({{12}, {4}, {8}, {8}, {8}, {20}, {8}, {8}, {0, true}});
  panel.SetMargin({12, 12});
  AddHeads(panel);
  for (ComponentKind kind : kComponents) AddServer(panel, page, kind);
  AddLauncher(panel, page);
}

}  // namespace tarvo
