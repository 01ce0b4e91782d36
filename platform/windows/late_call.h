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

/// Dots per inch at 100 %.
inline constexpr int kPlainDpi = 96;

/// The resolution of the monitor that a window is on; 0 where the system knows one for all.
inline int MonitorDpiOf(HWND window) {
  static const auto call = LateCall<UINT(WINAPI*)(HWND)>("user32.dll", "GetDpiForWindow");
  return call ? static_cast<int>(call(window)) : 0;
}

}  // namespace tarvo
