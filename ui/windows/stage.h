#pragma once

#include <windows.h>

#include <functional>

#include "ui/event_dispatch.h"
#include "ui/form.h"
#include "ui/windows/look.h"

namespace tarvo {

/// What every part of the native window works with.
struct Stage {
  Form& form;
  EventDispatch& dispatch;
  HINSTANCE instance;
  Look look;

  /// The only way by which the operator and the clock reach the program.
  void Happens(const std::function<void()>& event) {
    if (!form.frame.window.Ended()) dispatch.Run(event);
  }
};

}  // namespace tarvo
