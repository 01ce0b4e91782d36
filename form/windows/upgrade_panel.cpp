#include "form/windows/pages.h"

#include <string>
#include "form/control_ids.h"

#include "toolkit/windows/button_widgets.h"
#include "toolkit/windows/label_widgets.h"
#include "toolkit/windows/path_widgets.h"

namespace tarvo {
namespace {

enum Column { kName, kFrom, kBrowse, kArrow, kTo };
enum Row { kHeads, kFirstServer, kChoiceHeads = 4, kFirstChoice, kRest = 8, kBottom };

constexpr char kUsualPath[] = "C:\\servers\\login-server.exe";

struct Texts {
  const char* text;
  char key;
};

constexpr Texts kLabels[] = {{"&Login", 'l'}, {"&Char", 'c'}, {"&Map", 'm'}};
constexpr Texts kTriggers[] = {{"Ma&nual", 'n'}, {"Ma&p crash", 'p'}, {"&Any crash", 'a'}};
constexpr Texts kOptions[] = {
    {"Make &Backup", 'b'}, {"Only &full upgrades", 'f'}, {"&Set to \"Manual\" after Upgrade", 's'}};

void AddServer(Panel& panel, UpgradePage& page, ComponentKind kind) {
  const int number = static_cast<int>(IndexOf(kind));
  const int row = kFirstServer + number;
  const Texts& label = kLabels[IndexOf(kind)];
  panel.Add<CaptionWidget>(Slot{row, kName}, label.text);
  panel.Add<PathWidget>(Slot{row, kFrom}, NumberOf("nPath", number), page.nPath[kind], kUsualPath)
      .SetAccessKey(label.key);
  panel.Add<ButtonWidget>(Slot{row, kBrowse}, NumberOf("cmd_nBrowse", number),
                          page.cmd_nBrowse[kind]);
  panel.Add<ArrowWidget>(Slot{row, kArrow});
  panel.Add<PathLabelWidget>(Slot{row, kTo}, NumberOf("oPath", number), page.oPath[IndexOf(kind)],
                             kUsualPath);
}

void AddTrigger(Panel& panel, UpgradePage& page) {
  panel.Add<CaptionWidget>(Slot{kChoiceHeads, kFrom}, "Upgrade Trigger:");
  for (int i = 0; i < 3; ++i) {
    const auto index = static_cast<std::size_t>(i);
    panel
        .Add<OptionWidget>(Slot{kFirstChoice + i, kFrom, 1, false}, NumberOf("optMode", i),
                           page.optMode[index], kTriggers[index].text)
        .SetAccessKey(kTriggers[index].key);
  }
}

void AddOptions(Panel& panel, UpgradePage& page) {
  for (int i = 0; i < 3; ++i) {
    const auto index = static_cast<std::size_t>(i);
    panel
        .Add<CheckWidget>(Slot{kFirstChoice + i, kTo, 1, false}, NumberOf("chk_Opts", i),
                          page.chk_Opts[index], kOptions[index].text)
        .SetAccessKey(kOptions[index].key);
  }
}

}  // namespace

void FillUpgrade(Panel& panel, UpgradePage& page) {
  panel.SetColumns({{12}, {12, true}, {8}, {12}, {12, true}});
  panel.SetRows({{12}, {4}, {8}, {8}, {20}, {4}, {4}, {4}, {0, true}, {12}});
  panel.SetMargin({12, 12});
  panel.Add<CaptionWidget>(Slot{kHeads, kFrom}, "FROM Components");
  panel.Add<CaptionWidget>(Slot{kHeads, kTo}, "TO Components");
  for (ComponentKind kind : kComponents) AddServer(panel, page, kind);
  AddTrigger(panel, page);
  AddOptions(panel, page);
  panel.Add<CaptionWidget>(Slot{kBottom, kName}, "Last Upgrade:");
  panel.Add<LabelWidget>(Slot{kBottom, kFrom}, NumberOf("oPath", 3), page.oPath[3],
                         "2026-11-21 10:32:07");
  panel.Add<ButtonWidget>(Slot{kBottom, kTo, 1, false}, NumberOf("UpdateNow"), page.UpdateNow)
      .SetAccessKey('u');
}

}  // namespace tarvo
