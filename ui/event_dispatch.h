#pragma once

#include <functional>

#include "support/runtime_error.h"

namespace tarvo {

/// The one way by which an event of the outside world (a click, a tick, a close request) reaches
/// the program. A fault that nobody below has handled ends here: `onFault` is called once, after
/// which no further event is let through. Events may nest, since ticks go on under a message box.
class EventDispatch {
 public:
  /// Runs the event, unless the dispatch is closed.
  void Run(const std::function<void()>& event);

  /// No event is let through from now on; for a program that is ending.
  void Close() { closed_ = true; }
  bool Closed() const { return closed_; }

  std::function<void(const RuntimeError&)> onFault;

 private:
  void Report(const RuntimeError& fault);

  bool closed_ = false;
};

}  // namespace tarvo
