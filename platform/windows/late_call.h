#pragma once

#include "platform/windows/system_libraries.h"

namespace tarvo {

/// A call of a system library that is looked up when it is first needed: because only newer systems
/// have it, or because loading its library costs every start time and memory that few starts use.
/// The library stays loaded. nullptr when this system has no such call.
template <class Function>
Function LateCall(const char* library, const char* name) {
  const HMODULE module = LoadSystemLibrary(library);
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace tarvo
