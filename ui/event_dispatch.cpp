#include "ui/event_dispatch.h"

#include <exception>
#include <new>

namespace tarvo {

void EventDispatch::Run(const std::function<void()>& event) {
  if (closed_) return;
  try {
    event();
  } catch (const RuntimeError& fault) {
    Report(fault);
  } catch (const std::bad_alloc&) {
    Report(RuntimeError(Fault::OutOfMemory));
  } catch (const std::exception& fault) {
    Report(RuntimeError(static_cast<int>(Fault::InternalError), {}, fault.what()));
  }
}

void EventDispatch::Report(const RuntimeError& fault) {
  if (closed_) return;
  closed_ = true;
  if (onFault) onFault(fault);
}

}  // namespace tarvo
