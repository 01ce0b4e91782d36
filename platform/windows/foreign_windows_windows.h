#pragma once

#include "platform/foreign_windows.h"

namespace tarvo {

/// The desktop's top-level windows by the calls of user32.
class WindowsForeignWindows : public ForeignWindows {
 public:
  WindowHandle First() override;
  WindowHandle Next(WindowHandle window) override;
  bool StillThere(WindowHandle window) override;
  WindowHandle Parent(WindowHandle window) override;
  ProcessId Owner(WindowHandle window) override;
  /// A window whose program has stopped to answer messages is told without waiting for it; the
  /// result is then whether it is visible now.
  int Show(WindowHandle window, int command) override;
};

}  // namespace tarvo
