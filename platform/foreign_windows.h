#pragma once

#include <cstdint>

#include "platform/processes.h"

namespace tarvo {

/// A window handle of any process; 0 means none.
using WindowHandle = std::intptr_t;

/// ShowWindow's commands.
inline constexpr int kHideWindow = 0;
inline constexpr int kShowWindowNormal = 1;

/// The top-level windows of all programs, in the order in which they lie on the screen. No call
/// waits for the program that a window belongs to: it may have stopped to answer.
class ForeignWindows {
 public:
  virtual ~ForeignWindows() = default;
  virtual WindowHandle First() = 0;
  /// The window behind this one; 0 at the end of the list, and 0 as well when `window` is gone.
  virtual WindowHandle Next(WindowHandle window) = 0;
  virtual bool StillThere(WindowHandle window) = 0;
  virtual WindowHandle Parent(WindowHandle window) = 0;
  virtual ProcessId Owner(WindowHandle window) = 0;
  /// Asks for one of ShowWindow's commands; the window obeys when its program gets to it. Not 0
  /// when the window was visible when it was asked.
  virtual int Show(WindowHandle window, int command) = 0;
};

}  // namespace tarvo
