#pragma once

#include <cstdint>
#include <memory>

#include "form/form.h"
#include "toolkit/event_dispatch.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// The native window of the form: it mirrors every control of it and passes what the operator does,
/// and the ticks of the timers, to the program through the dispatch. It is invisible at first and
/// follows `form.frame.window` from then on.
///
/// Form, timers and dispatch must outlive it; after its end the form has no mirrors. There is at
/// most one at a time, used on the thread that made it.
class NativeWindow {
 public:
  NativeWindow(Form& form, TimerQueue& timers, EventDispatch& dispatch);
  ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  /// The window's handle, for message boxes that belong to it.
  std::intptr_t Handle() const;

  /// Handles events until the form's window has ended, and returns its exit code. A message box
  /// that is open at the end is closed.
  int Run();

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tarvo
