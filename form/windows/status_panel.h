#pragma once

#include "form/form.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// The first page: the log, which takes all free space, and the start buttons under it.
class StatusPanel : public Panel {
 public:
  StatusPanel(Stage& stage, HWND parent, StatusPage& page);
};

}  // namespace tarvo
