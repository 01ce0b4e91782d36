#pragma once

#include "ui/component_kind.h"
#include "ui/windows/panel.h"

namespace tarvo {

/// The upgrade's page: one row a server, from the new executable to the one that it replaces; the
/// trigger and the options under it, and the button at the bottom.
class UpgradePanel : public Panel {
 public:
  UpgradePanel(Stage& stage, HWND parent);

 private:
  void AddServer(Stage& stage, ComponentKind kind);
  void AddTrigger(Stage& stage);
  void AddOptions(Stage& stage);
};

}  // namespace tarvo
