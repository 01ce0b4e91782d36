#pragma once

#include <functional>

#include "platform/self_restart.h"
#include "support/runtime_error.h"

namespace tarvo {

/// The one way by which an event of the outside world (a click, a tick, a close request) reaches
/// the program. A fault that nobody below has handled ends here: `onFault` is called once, after
/// which no further event is let through. Events may nest, since ticks go on under a message box.
///
/// An exception of the standard library, memory that ran out included, is no fault of the run time
/// but of the program's own: `onOwnFault` is called at once, while the dispatch is still open.
/// Should it return, the fault is reported as 7 or 51.
class EventDispatch {
 public:
  /// Runs the event, unless the dispatch is closed.
  void Run(const std::function<void()>& event);

  /// No event is let through from now on; for a program that is ending.
  void Close() { closed_ = true; }
  bool Closed() const { return closed_; }

  std::function<void(const RuntimeError&)> onFault;
  std::function<void(OwnFault)> onOwnFault;
  /// The outermost event has come to its end.
  std::function<void()> onQuiet;

 private:
  void Handle(const std::function<void()>& event);
  void Fail(OwnFault fault);
  void Report(const RuntimeError& fault);

  bool closed_ = false;
  int depth_ = 0;
};

}  // namespace tarvo
