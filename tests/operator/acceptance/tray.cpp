#include "tests/operator/acceptance/tray.h"

// After windows.h, which it needs.
#include <shellapi.h>

#include "tests/operator/acceptance/desk.h"

namespace tarvo::acceptance {
namespace {

/// What the icon was registered with.
constexpr UINT kIconMessage = WM_MOUSEMOVE;
constexpr UINT kIconId = 1;

void TellIcon(HWND launcher, std::initializer_list<UINT> messages) {
  const HWND window = IconWindow(launcher);
  for (const UINT message : messages) {
    PostMessageA(window, kIconMessage, kIconId, static_cast<LPARAM>(message));
  }
}

/// Wine holds the icons in a window that is hidden when there is none; or, in newer versions, each
/// is a window in that of the shell, which may be seen without any.
bool WineShowsIcons() {
  const HWND shell = FindWindowA("Shell_TrayWnd", nullptr);
  return IsWindowVisible(FindWindowA(nullptr, "Wine System Tray")) != FALSE ||
         IsWindowVisible(FindWindowExA(shell, nullptr, "__wine_tray_icon", nullptr)) != FALSE;
}

HWND MenuOf(HWND launcher) {
  HWND menu = nullptr;
  while ((menu = FindWindowExA(nullptr, menu, "#32768", nullptr)) != nullptr) {
    if (ProcessOf(menu) == ProcessOf(launcher) && IsWindowVisible(menu)) return menu;
  }
  return nullptr;
}

}  // namespace

HWND IconWindow(HWND launcher) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, "TarvoSysTray", nullptr)) != nullptr) {
    if (ProcessOf(window) == ProcessOf(launcher)) return window;
  }
  return nullptr;
}

bool IconIsShown(HWND iconWindow) {
  if (UnderWine()) return WineShowsIcons();
  NOTIFYICONIDENTIFIER icon{};
  icon.cbSize = sizeof icon;
  icon.hWnd = iconWindow;
  icon.uID = kIconId;
  RECT place{};
  return SUCCEEDED(Shell_NotifyIconGetRect(&icon, &place));
}

bool IconIsThere(HWND launcher) {
  const HWND window = IconWindow(launcher);
  return window && IconIsShown(window);
}

void DoubleClickIcon(HWND launcher) {
  TellIcon(launcher, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP});
}

void OpenIconMenu(HWND launcher) {
  TellIcon(launcher, {WM_RBUTTONDOWN, WM_RBUTTONUP});
  Await(seconds(5), "no menu at the icon", [launcher] { return MenuOf(launcher) != nullptr; });
}

void ChooseShow(HWND launcher) {
  const HWND window = IconWindow(launcher);
  PostMessageA(window, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageA(window, WM_KEYDOWN, VK_RETURN, 1);
}

}  // namespace tarvo::acceptance
