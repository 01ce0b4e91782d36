#include "form/windows/pages.h"

#include "form/control_ids.h"
#include "form/windows/log_widget.h"
#include "form/windows/start_button.h"
#include "toolkit/windows/label_widgets.h"

namespace tarvo {
namespace {

/// A button and the name of its component beside it, three times; then space; then the two buttons
/// for all.
enum Column { kButton0, kName0, kRoom = 6, kStartAll, kStopAll, kColumns };
enum Row { kLog, kButtons };

constexpr char kWidestToggle[] = "Start";
constexpr char kWidestForAll[] = "Start All";

/// The names' access keys press the button beside them: &Login, &Char, &Map.
constexpr char kToggleKeys[] = {'l', 'c', 'm'};

}  // namespace

void FillStatus(Panel& panel, StatusPage& page) {
  panel.SetColumns({{12}, {8}, {20}, {8}, {20}, {8}, {20, true}, {8}, {8}});
  panel.SetRows({{12, true}, {12}});
  panel.SetMargin({12, 12});

  panel.Add<HiddenNameWidget>({}, "Status log");
  panel.Add<LogWidget>(Slot{kLog, 0, kColumns}, NumberOf("RTLog"), page.RTLog);
  for (int i = 0; i < static_cast<int>(kComponentCount); ++i) {
    const auto index = static_cast<std::size_t>(i);
    panel.Add<CaptionWidget>(Slot{kButtons, kName0 + 2 * i},
                             std::string("&") + NameOf(kComponents[index]));
    panel
        .Add<StartButton>(Slot{kButtons, kButton0 + 2 * i}, NumberOf("bStart", i),
                          page.bStart[index], kWidestToggle)
        .SetAccessKey(kToggleKeys[index]);
  }
  panel
      .Add<StartButton>(Slot{kButtons, kStartAll}, NumberOf("bStart", kStartAllButton),
                        page.bStart[kStartAllButton], kWidestForAll)
      .SetAccessKey('s');
  panel
      .Add<StartButton>(Slot{kButtons, kStopAll}, NumberOf("bStart", kStopAllButton),
                        page.bStart[kStopAllButton], kWidestForAll)
      .SetAccessKey('o');
}

}  // namespace tarvo
