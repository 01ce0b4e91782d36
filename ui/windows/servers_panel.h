#pragma once

#include "ui/component_kind.h"
#include "ui/windows/panel.h"

namespace tarvo {

/// The second page: a table with one row a server, and the launcher's own settings under it.
class ServersPanel : public Panel {
 public:
  ServersPanel(Stage& stage, HWND parent);

 private:
  void AddHeads();
  void AddServer(Stage& stage, ComponentKind kind);
  void AddLauncher(Stage& stage);
};

}  // namespace tarvo
