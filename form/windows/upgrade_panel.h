#pragma once

#include "form/upgrade_page.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// The upgrade's page: one row per server, from the new executable to the one that it replaces; the
/// trigger and the options under it, and the button at the bottom.
class UpgradePanel : public Panel {
 public:
  UpgradePanel(Stage& stage, HWND parent, UpgradePage& page);

 private:
  void AddServer(UpgradePage& page, ComponentKind kind);
  void AddTrigger(UpgradePage& page);
  void AddOptions(UpgradePage& page);
};

}  // namespace tarvo
