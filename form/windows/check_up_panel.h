#pragma once

#include "form/form.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// What is in the check-up's window: the findings, how many they are, and what to do with them.
class CheckUpPanel : public Panel {
 public:
  CheckUpPanel(Stage& stage, HWND parent, CheckUpView& view);
};

}  // namespace tarvo
