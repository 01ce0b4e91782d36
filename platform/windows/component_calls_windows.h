#pragma once

#include "platform/component_calls.h"

namespace tarvo {

/// Components of the system's COM registry, in this process or in one of their own, called by name
/// (IDispatch). Texts are turned from the ANSI code page and back; a result of another type becomes
/// text as the operator's language writes it, true and false as "True" and "False" in English.
///
/// COM is set up for each call on its own, as an apartment of this thread, and left afterwards, so
/// messages of the window may be dispatched meanwhile. Its libraries are loaded by the first call.
class WindowsComponentCalls final : public ComponentCalls {
 public:
  ComponentAnswer Call(const std::string& programId, const std::string& method,
                       const std::vector<std::string>& arguments) override;
};

}  // namespace tarvo
