#pragma once

#include <windows.h>

namespace tarvo {

/// Shuts the server root, the current folder and the search path out when libraries are loaded: a
/// game server may bring a library that is named like one of the system's. Libraries named without
/// a path are looked for in the system folder alone from then on, by this program and by whatever
/// it has loaded. First of all in `main`; what the import table names is loaded before that, so the
/// launcher imports only libraries that Windows never looks for in a program's folder.
///
/// Windows 7 without its update KB2533623 does not know this: there only the current folder is shut
/// out, and `LoadSystemLibrary` names the whole path.
///
/// What the system's windows load by bare name is loaded here, unless the program opens none.
void LoadFromSystemFolderOnly(bool opensWindows = true);

/// Loads a system library (bare file name) from the system folder, whether or not another one is
/// nearer; it stays loaded. nullptr when this system has none of that name.
HMODULE LoadSystemLibrary(const char* name);

/// How `LoadSystemLibrary` loads where Windows does not know the search of the system folder alone:
/// by the whole path, the library's own needs from its own folder first.
HMODULE LoadByWholePath(const char* name);

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
