#include "desktop/tray_menu.h"

namespace tarvo {

TrayMenu::TrayMenu(frmSysTray& tray, MainWindow& window, MessageBoxes& messageBoxes)
    : window_(window), messageBoxes_(messageBoxes) {
  tray.AddMenuItem("&Show", "open", true);
  tray.SysTrayDoubleClick = [this](int) { window_.BringToFront(); };
  tray.SysTrayMouseDown = [&tray](int button) {
    if (button == kRightButton) tray.ShowMenu();
  };
  tray.MenuClick = [this](std::size_t, const std::string& key) { MenuClick(key); };
}

void TrayMenu::MenuClick(const std::string& key) {
  if (key == "close") return;
  if (key == "open") return window_.BringToFront();
  messageBoxes_.Ask({"Clicked item with key " + key, BoxIcon::Information});
}

}  // namespace tarvo
