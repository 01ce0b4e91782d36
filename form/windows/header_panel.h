#pragma once

#include "form/form.h"
#include "toolkit/windows/panel.h"

namespace tarvo {

/// What is above the pages: the server's name, the free memory, the lights, the last failure.
class HeaderPanel : public Panel {
 public:
  HeaderPanel(Stage& stage, HWND parent, Frame& frame);
};

}  // namespace tarvo
