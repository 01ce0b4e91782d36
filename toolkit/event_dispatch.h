#pragma once

#include <functional>

#include "platform/self_restart.h"
#include "support/runtime_error.h"

namespace tarvo {

/// The only way for an event of the outside world (a click, a tick, a close request) to reach the
/// program. Events run at once, on the calling thread, which is the same for all; they may nest,
/// since ticks go on during a message box.
///
/// A fault that the event has not handled itself ends here: the dispatch closes and `onFault` is
/// called, once.
///
/// An exception of the standard library, out of memory included, is a fault of the program itself:
/// `onOwnFault` is called first, while the dispatch is still open. If it returns, `onFault` gets
/// the fault as number 7 or 51.
///
/// The owner sets the functions before the first event; an empty one is skipped.
class EventDispatch {
 public:
  /// Runs the event, unless the dispatch is closed. No fault or standard exception of it reaches
  /// the caller.
  void Run(const std::function<void()>& event);

  /// Lets no further event through; for a program that is ending. Events that are running go on.
  void Close() { closed_ = true; }
  bool Closed() const { return closed_; }
  /// Whether the event that runs has come while another one runs: under a dialog of that one.
  bool Nested() const { return depth_ > 1; }

  std::function<void(const RuntimeError&)> onFault;  ///< The dispatch is already closed.
  std::function<void(OwnFault)> onOwnFault;
  /// An event has ended, one that came under the dialog of another included, even if it closed the
  /// dispatch.
  std::function<void()> onEnd;
  /// The outermost event has ended likewise; after `onEnd`.
  std::function<void()> onQuiet;

 private:
  void Handle(const std::function<void()>& event);
  void Fail(OwnFault fault);
  void Report(const RuntimeError& fault);

  bool closed_ = false;
  int depth_ = 0;
};

}  // namespace tarvo
