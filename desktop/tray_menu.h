#pragma once

#include <string>

#include "desktop/frm_sys_tray.h"
#include "platform/message_boxes.h"
#include "toolkit/main_window.h"

namespace tarvo {

/// What the notification icon does with the main window: a double click, or "Show" in its menu,
/// brings the window back; the right button opens the menu.
class TrayMenu {
 public:
  /// Adds the menu's entry and takes the icon's events over. All three must outlive it.
  TrayMenu(frmSysTray& tray, MainWindow& window, MessageBoxes& messageBoxes);
  TrayMenu(const TrayMenu&) = delete;
  TrayMenu& operator=(const TrayMenu&) = delete;

 private:
  void MenuClick(const std::string& key);

  MainWindow& window_;
  MessageBoxes& messageBoxes_;
};

}  // namespace tarvo
