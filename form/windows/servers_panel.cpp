#include "form/windows/servers_panel.h"

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
enum Row { kHeads, kFirstServer, kRestartAll = 4, kLogFile, kLauncher, kRest };

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

}  // namespace

ServersPanel::ServersPanel(Stage& stage, HWND parent, ServersPage& page)
    : Panel(stage, parent, Ground::Page) {
  SetColumns({{12}, {12, true}, {12}, {20}, {20}, {4}, {4}, {24}});
  SetRows({{12}, {4}, {8}, {8}, {8}, {20}, {8}, {0, true}});
  SetMargin({12, 12});
  AddHeads();
  for (ComponentKind kind : kComponents) AddServer(page, kind);
  AddLauncher(page);
}

void ServersPanel::AddHeads() {
  Add<CaptionWidget>(Slot{kHeads, kExecutable}, "Executable");
  Add<CaptionWidget>(Slot{kHeads, kPriority}, "Priority");
  Add<CaptionWidget>(Slot{kHeads, kAutoStart}, "Auto start");
  Add<CaptionWidget>(Slot{kHeads, kAutokill, 3}, "Freeze Autokill after");
  Add<CaptionWidget>(Slot{kHeads, kWindow}, "Window");
}

void ServersPanel::AddServer(ServersPage& page, ComponentKind kind) {
  const std::size_t index = IndexOf(kind);
  const int number = static_cast<int>(index);
  const int row = kFirstServer + number;
  const ServerTexts& texts = kTexts[index];
  const std::string name = NameOf(kind);

  Add<CaptionWidget>(Slot{row, kName}, texts.label);
  auto& executable =
      Add<ListWidget>(Slot{row, kExecutable}, NumberOf("Exes", number), page.Exes[kind], 120, 120);
  executable.SetAccessKey(texts.labelKey);
  executable.SetReasonWhenDisabled("Stop the " + name + " server to choose another executable.");
  Add<HiddenNameWidget>({}, name + " priority");
  Add<ListWidget>(Slot{row, kPriority}, NumberOf("Prior", number), page.Prior[kind], 76, 160);
  Add<CheckWidget>(Slot{row, kAutoStart, 1, false}, NumberOf("chkAutoStart", number),
                   page.chkAutoStart[kind], name + ": Auto start", BoxKind::BoxAlone);
  Add<CheckWidget>(Slot{row, kAutokill, 1, false}, NumberOf("chkAK", number), page.chkAK[index],
                   name + ": Freeze Autokill after", BoxKind::BoxAlone);
  Add<HiddenNameWidget>({}, name + ": Freeze Autokill after, seconds");
  Add<TextWidget>(Slot{row, kTimeout, 1, false}, NumberOf("TTO", number), page.TTO[kind], "000000")
      .SetReasonWhenDisabled("Check \"Freeze Autokill after\" to change the time.");
  Add<CaptionWidget>(Slot{row, kSeconds}, "sec.");
  Add<OptionWidget>(Slot{row, kWindow}, NumberOf("opt_ShowWin", number), page.opt_ShowWin[index],
                    texts.window)
      .SetAccessKey(texts.windowKey);
}

void ServersPanel::AddLauncher(ServersPage& page) {
  Add<CheckWidget>(Slot{kRestartAll, kAutokill, kColumns - kAutokill, false},
                   NumberOf("chkAK", kAutokillOfAll), page.chkAK[kAutokillOfAll],
                   "&Restart All components with Map Autokill")
      .SetAccessKey('r');
  Add<CaptionWidget>(Slot{kLogFile, kName}, "Log file");
  Add<CheckWidget>(Slot{kLogFile, kExecutable, 1, false}, NumberOf("WLog"), page.WLog,
                   "&Save status in log file?")
      .SetAccessKey('s');
  Add<HiddenNameWidget>({}, "Status messages saved in the log file");
  Add<ListWidget>(Slot{kLogFile, kPriority, 3, false}, NumberOf("LogH"), page.LogH, 120, 240);
  Add<CaptionWidget>(Slot{kLauncher, kName}, "Launcher");
  Add<CheckWidget>(Slot{kLauncher, kExecutable, 1, false}, NumberOf("Check2"), page.Check2,
                   "Start with &Windows")
      .SetAccessKey('w');
  Add<CheckWidget>(Slot{kLauncher, kPriority, 3, false}, NumberOf("SMinimized"), page.SMinimized,
                   "Start Mi&nimized")
      .SetAccessKey('n');
  Add<ButtonWidget>(Slot{kLauncher, kSeconds, kColumns - kSeconds}, NumberOf("Command1"),
                    page.Command1)
      .SetAccessKey('u');
}

}  // namespace tarvo
