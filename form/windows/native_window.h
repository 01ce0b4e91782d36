#pragma once

#include <cstdint>
#include <memory>

#include "form/form.h"
#include "toolkit/event_dispatch.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// The native window of the form: it mirrors every control of it and hands what the operator does,
/// and the ticks of the timers, to the program through the dispatch. It begins invisible and
/// follows `form.frame.window` from then on.
///
/// Form, timers and dispatch must outlive it; after it is gone the form has no mirrors. One at a
/// time, on the thread that made it.
class NativeWindow {
 public:
  NativeWindow(Form& form, TimerQueue& timers, EventDispatch& dispatch);
  ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  /// The window's handle, for message boxes that belong to it.
  std::intptr_t Handle() const;

  /// Handles events until the form's window has ended, and returns its exit code. A message box
  /// that is up when the end comes is closed.
  int Run();

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tarvo
