#pragma once

#include "form/form.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// The second page: a table with one row per server, and the launcher's own settings under it.
class ServersPanel : public Panel {
 public:
  ServersPanel(Stage& stage, HWND parent, ServersPage& page);

 private:
  void AddHeads();
  void AddServer(ServersPage& page, ComponentKind kind);
  void AddLauncher(ServersPage& page);
};

}  // namespace tarvo
