#include "platform/windows/foreign_windows_windows.h"

#include <windows.h>

namespace tarvo {
namespace {

HWND ToNative(WindowHandle window) { return reinterpret_cast<HWND>(window); }
WindowHandle FromNative(HWND window) { return reinterpret_cast<WindowHandle>(window); }

}  // namespace

WindowHandle WindowsForeignWindows::First() { return FromNative(FindWindowA(nullptr, nullptr)); }

WindowHandle WindowsForeignWindows::Next(WindowHandle window) {
  return FromNative(GetWindow(ToNative(window), GW_HWNDNEXT));
}

bool WindowsForeignWindows::StillThere(WindowHandle window) {
  return IsWindow(ToNative(window)) != 0;
}

WindowHandle WindowsForeignWindows::Parent(WindowHandle window) {
  return FromNative(GetParent(ToNative(window)));
}

ProcessId WindowsForeignWindows::Owner(WindowHandle window) {
  DWORD owner = 0;
  GetWindowThreadProcessId(ToNative(window), &owner);
  return owner;
}

int WindowsForeignWindows::Show(WindowHandle window, int command) {
  const HWND native = ToNative(window);
  const int visible = IsWindowVisible(native);
  ShowWindowAsync(native, command);
  return visible;
}

}  // namespace tarvo
