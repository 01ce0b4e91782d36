#include "toolkit/event_dispatch.h"

#include <exception>
#include <new>

namespace tarvo {

void EventDispatch::Run(const std::function<void()>& event) {
  if (closed_) return;
  ++depth_;
  Handle(event);
  if (onEnd) Handle(onEnd);
  if (--depth_ == 0 && onQuiet) Handle(onQuiet);
}

void EventDispatch::Handle(const std::function<void()>& event) {
  try {
    event();
  } catch (const RuntimeError& fault) {
    Report(fault);
  } catch (const std::bad_alloc&) {
    // Reported before anything is made of it: there may be no memory even for the shortest text.
    Fail(OwnFault::OutOfMemory);
    Report(RuntimeError(Fault::OutOfMemory));
  } catch (const std::exception& fault) {
    Fail(OwnFault::UnexpectedException);
    Report(RuntimeError(static_cast<int>(Fault::InternalError), {}, fault.what()));
  }
}

void EventDispatch::Fail(OwnFault fault) {
  if (!closed_ && onOwnFault) onOwnFault(fault);
}

void EventDispatch::Report(const RuntimeError& fault) {
  if (closed_) return;
  closed_ = true;
  if (onFault) onFault(fault);
}

}  // namespace tarvo
