#include "form/windows/pages.h"

#include "form/control_ids.h"
#include "toolkit/windows/button_widgets.h"
#include "toolkit/windows/label_widgets.h"
#include "toolkit/windows/list_widgets.h"

namespace tarvo {
namespace {

enum Column { kSummary, kRepair, kCopy, kAgain, kColumns };
enum Row { kList, kButtons };

constexpr int kLines = 18;
constexpr char kUsualLine[] =
    "    Set \"map_port:\" in conf\\map_athena.conf to a number from 1 to 65535, and start the "
    "launcher again.  ";
constexpr char kUsualSummary[] = "Looking the server root over...";

}  // namespace

void FillCheckUp(Panel& panel, CheckUpView& view) {
  panel.SetColumns({{12, true}, {12}, {8}, {8}});
  panel.SetRows({{12, true}, {8}});
  panel.SetMargin({12, 12});
  panel.Add<HiddenNameWidget>({}, "Findings");
  panel.Add<ListBoxWidget>(Slot{kList, kSummary, kColumns}, NumberOf("lstCheck"), view.lstCheck,
                           kLines, kUsualLine);
  panel.Add<LabelWidget>(Slot{kButtons, kSummary}, NumberOf("lblCheck"), view.lblCheck,
                         kUsualSummary);
  panel.Add<ButtonWidget>(Slot{kButtons, kRepair}, NumberOf("cmdRepair"), view.cmdRepair)
      .SetAccessKey('r');
  panel.Add<ButtonWidget>(Slot{kButtons, kCopy}, NumberOf("cmdCopy"), view.cmdCopy)
      .SetAccessKey('c');
  panel.Add<ButtonWidget>(Slot{kButtons, kAgain}, NumberOf("cmdAgain"), view.cmdAgain)
      .SetAccessKey('a');
}

}  // namespace tarvo
