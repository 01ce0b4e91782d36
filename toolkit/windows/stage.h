#pragma once

#include <windows.h>

#include <functional>

#include "toolkit/event_dispatch.h"
#include "toolkit/main_window.h"
#include "toolkit/windows/look.h"

namespace tarvo {

/// What every part of the native window works with; it outlives them all.
struct Stage {
  MainWindow& window;
  EventDispatch& dispatch;
  HINSTANCE instance;
  Look look;

  /// Runs an event unless the program has ended. The operator and the clock reach it only this way.
  void Happens(const std::function<void()>& event) {
    if (!window.Ended()) dispatch.Run(event);
  }
};

}  // namespace tarvo
