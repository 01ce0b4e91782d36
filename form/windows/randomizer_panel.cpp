#include "form/windows/pages.h"

#include "form/control_ids.h"
#include "toolkit/windows/button_widgets.h"
#include "toolkit/windows/drawn_button.h"
#include "toolkit/windows/field_widgets.h"
#include "toolkit/windows/label_widgets.h"
#include "toolkit/windows/list_widgets.h"

namespace tarvo {
namespace {

enum Column {
  kLabel,
  kField,
  kLabel2,
  kField2,
  kDay,
  kTimeLabel,
  kTime,
  kColon,
  kPlus,  ///< With the next one the minute's.
  kMinus,
  kRest,
};
constexpr int kColumns = kRest + 1;

enum Row {
  kWarning,
  kHeads,
  kSetting,  ///< At the right the time.
  kBounds,   ///< At the right its scroll bars.
  kButtons,  ///< At the right the restart.
  kLists,
  kRestOfDays,
  kEntriesHead,
  kEntries,
  kNow,
  kModes,
  kLimits,
};
constexpr int kRows = kLimits + 1;

constexpr int kListLines = 5;
constexpr int kDays = 7;
constexpr int kHoursAPage = 6;
constexpr int kMinutesAPage = 10;

void AddTime(Panel& panel, RandomizerPage& page) {
  panel.Add<CaptionWidget>(Slot{kSetting, kTimeLabel}, "&Time:");
  panel.Add<TextWidget>(Slot{kSetting, kTime}, NumberOf("txt_Time", 0), page.txt_Time[0], "0000")
      .SetAccessKey('t');
  panel.Add<CaptionWidget>(Slot{kSetting, kColon}, ":");
  panel.Add<HiddenNameWidget>(std::nullopt, "Minute");
  panel.Add<TextWidget>(Slot{kSetting, kPlus, 2}, NumberOf("txt_Time", 1), page.txt_Time[1],
                        "0000");
  panel.Add<HiddenNameWidget>(std::nullopt, "Hour");
  panel.Add<ScrollWidget>(Slot{kBounds, kTime}, NumberOf("ScrollTime", 0), page.ScrollTime[0],
                          kHoursAPage);
  panel.Add<HiddenNameWidget>(std::nullopt, "Minute");
  panel.Add<ScrollWidget>(Slot{kBounds, kPlus, 2}, NumberOf("ScrollTime", 1), page.ScrollTime[1],
                          kMinutesAPage);
}

void AddRanges(Panel& panel, RandomizerPage& page) {
  panel.Add<HeadingWidget>(Slot{kHeads, kLabel, 4}, "Server Configuration");
  panel.Add<CaptionWidget>(Slot{kSetting, kLabel}, "S&etting:");
  panel.Add<ListWidget>(Slot{kSetting, kField, 3}, NumberOf("cmdParam"), page.cmdParam, 132, 132)
      .SetAccessKey('e');
  panel.Add<CaptionWidget>(Slot{kBounds, kLabel}, "M&in. Value:");
  panel.Add<TextWidget>(Slot{kBounds, kField}, NumberOf("rIni"), page.rIni, "-00000000")
      .SetAccessKey('i');
  panel.Add<CaptionWidget>(Slot{kBounds, kLabel2}, "Ma&x. Value:");
  panel.Add<TextWidget>(Slot{kBounds, kField2}, NumberOf("rEnd"), page.rEnd, "-00000000")
      .SetAccessKey('x');
  panel.Add<ButtonWidget>(Slot{kButtons, kField}, NumberOf("rAdd", 0), page.rAdd[0])
      .SetAccessKey('u');
  panel.Add<ButtonWidget>(Slot{kButtons, kField2}, NumberOf("rAdd", 1), page.rAdd[1])
      .SetAccessKey('r');
  panel.Add<CaptionWidget>(Slot{kLists, kLabel}, "Ran&ges:");
  panel
      .Add<ListBoxWidget>(Slot{kLists, kField, 3, true, kNow - kLists}, NumberOf("lstRnd"),
                          page.lstRnd, kListLines, "base_exp_rate:100 to 300")
      .SetAccessKey('g');
  panel.Add<ButtonWidget>(Slot{kNow, kField, 3, false}, NumberOf("Command2"), page.Command2)
      .SetAccessKey('n');
}

void AddMode(Panel& panel, RandomizerPage& page) {
  constexpr struct {
    const char* text;
    char key;
    int column;
  } kModeTexts[] = {
      {"&Map Start", 'm', kLabel}, {"M&anual", 'a', kField}, {"&Program", 'p', kLabel2}};
  for (int i = 0; i < 3; ++i) {
    const auto& mode = kModeTexts[i];
    panel
        .Add<OptionWidget>(Slot{kModes, mode.column, 1, false}, NumberOf("opt_Rnd", i),
                           page.opt_Rnd[static_cast<std::size_t>(i)], mode.text)
        .SetAccessKey(mode.key);
  }
  panel.Add<CaptionWidget>(Slot{kLimits, kLabel}, "Rnd x &hour:");
  panel
      .Add<TextWidget>(Slot{kLimits, kField, 1, false}, NumberOf("txtMxD", 0), page.txtMxD[0],
                       "0000")
      .SetAccessKey('h');
  panel.Add<CaptionWidget>(Slot{kLimits, kLabel2}, "Rnd x &day:");
  panel
      .Add<TextWidget>(Slot{kLimits, kField2, 1, false}, NumberOf("txtMxD", 1), page.txtMxD[1],
                       "0000")
      .SetAccessKey('d');
}

void AddCalendar(Panel& panel, RandomizerPage& page) {
  panel.Add<HeadingWidget>(Slot{kHeads, kDay, kColumns - kDay},
                           "Randomize Calendar  (program  mode)");
  panel.Add<CaptionWidget>(Slot{kSetting, kDay}, "Da&y:");
  panel
      .Add<ListBoxWidget>(Slot{kBounds, kDay, 1, true, kRestOfDays - kBounds + 1},
                          NumberOf("lstDay"), page.lstDay, kDays, "Wed")
      .SetAccessKey('y');
  AddTime(panel, page);
  panel.Add<CaptionWidget>(Slot{kButtons, kTimeLabel}, "Re&start?");
  panel.Add<ListWidget>(Slot{kButtons, kTime}, NumberOf("cmbRstrt"), page.cmbRstrt, 56, 80)
      .SetAccessKey('s');
  panel
      .Add<SignButton>(Slot{kButtons, kPlus, 1, false}, NumberOf("cmdCalendar", 0),
                       page.cmdCalendar[0], SignButton::Sign::Plus, "Add to the calendar")
      .SetAccessKey('+');
  panel
      .Add<SignButton>(Slot{kButtons, kMinus, 1, false}, NumberOf("cmdCalendar", 1),
                       page.cmdCalendar[1], SignButton::Sign::Minus, "Remove from the calendar")
      .SetAccessKey('-');
  panel.Add<CaptionWidget>(Slot{kEntriesHead, kDay, kColumns - kDay}, " Randomi&ze at:");
  panel
      .Add<ListBoxWidget>(Slot{kEntries, kDay, kColumns - kDay, true, kRows - kEntries},
                          NumberOf("lstDTRands"), page.lstDTRands, kListLines,
                          "Wed 00:00 restart=Y")
      .SetAccessKey('z');
}

}  // namespace

void FillRandomizer(Panel& panel, RandomizerPage& page) {
  panel.SetColumns({{20}, {8, true}, {12}, {8, true}, {24}, {12}, {8}, {4}, {4}, {4}, {0, true}});
  panel.SetRows({{12}, {20}, {8}, {8}, {8}, {8}, {0}, {8}, {4, true}, {8}, {24}, {4}});
  panel.SetMargin({20, 16});
  panel.AddCard({kHeads, kLabel, kNow - kHeads + 1, kDay - kLabel});
  panel.AddCard({kHeads, kDay, kRows - kHeads, kColumns - kDay});
  panel.Add<WarningWidget>(Slot{kWarning, kLabel, kColumns}, kRandomizerWarning);
  AddRanges(panel, page);
  AddMode(panel, page);
  AddCalendar(panel, page);
}

}  // namespace tarvo
