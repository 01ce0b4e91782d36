#pragma once

#include <windows.h>

#include "toolkit/timer_queue.h"
#include "toolkit/windows/stage.h"

namespace tarvo {

/// Drives the timer queue by one timer of the window, which goes on under a message box, a menu or
/// while the window is dragged. One tick a message, so that the operator's input comes between.
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
