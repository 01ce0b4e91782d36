#pragma once

#include <array>
#include <string_view>

namespace tarvo {

/// What kind of window shows a control, and so how it is driven from outside.
enum class ControlType {
  Label,
  Light,
  Button,
  CheckBox,
  Option,
  TextBox,
  List,
  Tab,
  RichText,
  ListBox,
  ScrollBar,
};

/// The window number of a control or of an array of controls: element i has `firstId` + i.
struct ControlId {
  std::string_view name;
  ControlType type;
  int count;
  int firstId;
};

/// The window class of the launcher's main window.
inline constexpr char kMainWindowClass[] = "TarvoLauncherMain";

/// The window class of the check-up's window, which the main one owns.
inline constexpr char kCheckUpWindowClass[] = "TarvoLauncherCheckUp";

/// The window property of a light that holds its colour (0x00BBGGRR) plus 1, for other programs.
inline constexpr char kLightColourProperty[] = "TarvoLightColour";

/// Every control of the form with its own number, shared by the native window and the programs that
/// drive it from outside. A number is never given to another control.
inline constexpr std::array kControlIds = {
    ControlId{"SName", ControlType::Label, 1, 1000},
    ControlId{"lblErr", ControlType::Label, 1, 1001},
    ControlId{"lblMemory", ControlType::Label, 1, 1002},
    ControlId{"SSTab1", ControlType::Tab, 1, 1003},
    ControlId{"Sem", ControlType::Light, 3, 1010},
    ControlId{"Strip", ControlType::Label, 3, 1020},
    ControlId{"RTLog", ControlType::RichText, 1, 1100},
    ControlId{"bStart", ControlType::Button, 5, 1110},
    ControlId{"Exes", ControlType::List, 3, 1200},
    ControlId{"Prior", ControlType::List, 3, 1210},
    ControlId{"chkAutoStart", ControlType::CheckBox, 3, 1220},
    ControlId{"chkAK", ControlType::CheckBox, 4, 1230},
    ControlId{"TTO", ControlType::TextBox, 3, 1240},
    ControlId{"opt_ShowWin", ControlType::Option, 3, 1250},
    ControlId{"WLog", ControlType::CheckBox, 1, 1260},
    ControlId{"LogH", ControlType::List, 1, 1261},
    ControlId{"Check2", ControlType::CheckBox, 1, 1262},
    ControlId{"SMinimized", ControlType::CheckBox, 1, 1263},
    ControlId{"Command1", ControlType::Button, 1, 1264},
    ControlId{"chkEvents", ControlType::CheckBox, 1, 1265},
    ControlId{"cmdCheckUp", ControlType::Button, 1, 1280},
    ControlId{"cmdParam", ControlType::List, 1, 1300},
    ControlId{"rIni", ControlType::TextBox, 1, 1301},
    ControlId{"rEnd", ControlType::TextBox, 1, 1302},
    ControlId{"rAdd", ControlType::Button, 2, 1303},
    ControlId{"lstRnd", ControlType::ListBox, 1, 1305},
    ControlId{"Command2", ControlType::Button, 1, 1306},
    ControlId{"opt_Rnd", ControlType::Option, 3, 1310},
    ControlId{"txtMxD", ControlType::TextBox, 2, 1313},
    ControlId{"lstDay", ControlType::ListBox, 1, 1320},
    ControlId{"ScrollTime", ControlType::ScrollBar, 2, 1321},
    ControlId{"txt_Time", ControlType::TextBox, 2, 1323},
    ControlId{"cmbRstrt", ControlType::List, 1, 1325},
    ControlId{"cmdCalendar", ControlType::Button, 2, 1326},
    ControlId{"lstDTRands", ControlType::ListBox, 1, 1328},
    ControlId{"nPath", ControlType::TextBox, 3, 1400},
    ControlId{"oPath", ControlType::Label, 4, 1410},
    ControlId{"cmd_nBrowse", ControlType::Button, 3, 1420},
    ControlId{"optMode", ControlType::Option, 3, 1430},
    ControlId{"chk_Opts", ControlType::CheckBox, 3, 1440},
    ControlId{"lblCheck", ControlType::Label, 1, 1500},
    ControlId{"lstCheck", ControlType::ListBox, 1, 1501},
    ControlId{"cmdRepair", ControlType::Button, 1, 1502},
    ControlId{"cmdCopy", ControlType::Button, 1, 1503},
    ControlId{"cmdAgain", ControlType::Button, 1, 1504},
    ControlId{"UpdateNow", ControlType::Button, 1, 1450},
};

/// The entry of a control's name; nullptr for a name that no control has.
constexpr const ControlId* FindControlId(std::string_view name) {
  for (const ControlId& entry : kControlIds) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

/// The name of a control of the form; any other text does not compile.
struct ControlName {
  int firstId;
  consteval ControlName(const char* name) : firstId(FindControlId(name)->firstId) {}
};

/// The number of a control, or of one of an array, as other programs know it.
constexpr int NumberOf(ControlName name, int index = 0) { return name.firstId + index; }

}  // namespace tarvo
