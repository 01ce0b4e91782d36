#pragma once

#include <windows.h>

#include "toolkit/timer_queue.h"
#include "toolkit/windows/stage.h"

namespace tarvo {

/// Drives the timer queue by one timer of the window, which goes on during a message box, a menu or
/// a drag of the window. One tick per message, so that the operator's input is handled in between.
class TimerPump {
 public:
  TimerPump(Stage& stage, TimerQueue& queue, HWND window);
  ~TimerPump();
  TimerPump(const TimerPump&) = delete;
  TimerPump& operator=(const TimerPump&) = delete;

  /// The window's timer went off.
  void Tick();

 private:
  void Rearm();

  Stage& stage_;
  TimerQueue& queue_;
  HWND window_;
};

}  // namespace tarvo
