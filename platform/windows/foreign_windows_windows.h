#pragma once

#include "platform/foreign_windows.h"

namespace tarvo {

/// The desktop's top-level windows by those calls of user32 that send no message.
class WindowsForeignWindows : public ForeignWindows {
 public:
  WindowHandle First() override;
  WindowHandle Next(WindowHandle window) override;
  bool StillThere(WindowHandle window) override;
  WindowHandle Parent(WindowHandle window) override;
  ProcessId Owner(WindowHandle window) override;
  int Show(WindowHandle window, int command) override;
};

}  // namespace tarvo
