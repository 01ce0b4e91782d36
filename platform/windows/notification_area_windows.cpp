#include "platform/windows/notification_area_windows.h"

#include <windows.h>

#include <shellapi.h>

#include <utility>

#include "platform/windows/notification_record.h"
#include "platform/windows/window_class.h"

namespace tarvo {
namespace {

constexpr char kClass[] = "TarvoSysTray";

HWND AsWindow(std::intptr_t window) { return reinterpret_cast<HWND>(window); }

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  auto* area = OwnerOf<WindowsNotificationArea>(window);
  if (area && area->TakeMessage(message, l)) return 0;
  // Whoever asks every window of the program to close means the main one, and that may refuse.
  if (message == WM_CLOSE) return 0;
  return DefWindowProcA(window, message, w, l);
}

/// The entries' numbers are their indices plus 1: 0 says that nothing was chosen.
HMENU MakeMenu(const std::vector<MenuEntry>& entries) {
  const HMENU menu = CreatePopupMenu();
  UINT number = 0;
  for (const MenuEntry& entry : entries) {
    ++number;
    AppendMenuA(menu, entry.enabled ? MF_STRING : MF_STRING | MF_GRAYED, number,
                entry.caption.c_str());
    if (entry.isDefault) SetMenuDefaultItem(menu, number, FALSE);
  }
  return menu;
}

int TrackAtCursor(HMENU menu, HWND owner) {
  POINT cursor{};
  GetCursorPos(&cursor);
  // Without both, a click beside the menu would not close it.
  SetForegroundWindow(owner);
  const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTBUTTON, cursor.x,
                                    cursor.y, 0, owner, nullptr);
  PostMessageA(owner, WM_NULL, 0, 0);
  return chosen;
}

}  // namespace

WindowsNotificationArea::~WindowsNotificationArea() {
  Delete();
  CloseWindow();
}

void WindowsNotificationArea::OpenWindow(const std::string& title) {
  if (window_ != 0) return;
  const HINSTANCE instance = GetModuleHandleA(nullptr);
  RegisterOnce(WindowClass(instance, kClass, Procedure));
  const HWND window = CreateWindowExA(WS_EX_TOOLWINDOW, kClass, title.c_str(), WS_POPUP, 0, 0, 0, 0,
                                      nullptr, nullptr, instance, nullptr);
  window_ = reinterpret_cast<std::intptr_t>(window);
  SetOwner(window, this);
  shellRestarted_ = RegisterWindowMessageA("TaskbarCreated");
  // A launcher with administrator's rights would not hear the shell, which has none.
  ChangeWindowMessageFilterEx(window, shellRestarted_, MSGFLT_ALLOW, nullptr);
}

void WindowsNotificationArea::CloseWindow() {
  if (window_ == 0) return;
  if (menuIsUp_) EndMenu();
  const HWND window = AsWindow(std::exchange(window_, 0));
  SetOwner<WindowsNotificationArea>(window, nullptr);
  DestroyWindow(window);
}

bool WindowsNotificationArea::Add(const NotificationIcon& icon) {
  // Also when the call fails: a shell that answers too late has taken it.
  added_ = true;
  return Notify(NIM_ADD, icon);
}

bool WindowsNotificationArea::Modify(const NotificationIcon& icon) {
  return Notify(NIM_MODIFY, icon);
}

void WindowsNotificationArea::Delete() {
  if (std::exchange(added_, false)) Notify(NIM_DELETE, {});
}

bool WindowsNotificationArea::Notify(std::uint32_t order, const NotificationIcon& icon) const {
  NOTIFYICONDATAA record = NotificationRecord(AsWindow(window_), icon);
  return Shell_NotifyIconA(order, &record) != FALSE;
}

std::optional<std::size_t> WindowsNotificationArea::ShowMenu(
    const std::vector<MenuEntry>& entries) {
  if (menuIsUp_ || window_ == 0) return std::nullopt;
  menuIsUp_ = true;
  const HMENU menu = MakeMenu(entries);
  const int chosen = TrackAtCursor(menu, AsWindow(window_));
  DestroyMenu(menu);
  menuIsUp_ = false;
  if (chosen <= 0) return std::nullopt;
  return static_cast<std::size_t>(chosen - 1);
}

bool WindowsNotificationArea::TakeMessage(std::uint32_t message, std::intptr_t detail) {
  if (message == kIconMessage) {
    if (onMouseMessage) onMouseMessage(LOWORD(detail));
    return true;
  }
  if (message != shellRestarted_) return false;
  if (onShellRestarted) onShellRestarted();
  return true;
}

}  // namespace tarvo
