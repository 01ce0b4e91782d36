#pragma once

#include <array>

#include "toolkit/controls.h"

namespace tarvo {

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

}  // namespace tarvo
