#pragma once

#include <windows.h>

#include <functional>

#include "toolkit/event_dispatch.h"
#include "toolkit/main_window.h"
#include "toolkit/windows/look.h"

namespace tarvo {

/// What every part of the native window works with.
struct Stage {
  MainWindow& window;
  EventDispatch& dispatch;
  HINSTANCE instance;
  Look look;

  /// The only way by which the operator and the clock reach the program.
  void Happens(const std::function<void()>& event) {
    if (!window.Ended()) dispatch.Run(event);
  }
};

}  // namespace tarvo
