#include "platform/windows/message_boxes_windows.h"

#include <windows.h>

namespace tarvo {
namespace {

constexpr char kTitle[] = "Tarvo Launcher";

UINT IconFlag(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return MB_ICONSTOP;
    case BoxIcon::Exclamation:
      return MB_ICONEXCLAMATION;
    case BoxIcon::Question:
      return MB_ICONQUESTION;
    case BoxIcon::Information:
      break;
  }
  return MB_ICONINFORMATION;
}

UINT ButtonFlags(const MessageBoxRequest& request) {
  if (request.buttons == BoxButtons::Ok) return MB_OK;
  return request.noIsDefault ? MB_YESNO | MB_DEFBUTTON2 : MB_YESNO | MB_DEFBUTTON1;
}

/// While it lives, a box that this thread activates is above all other windows (the flag alone
/// does not do it everywhere) and has the icon of that window, for the taskbar.
class BoxOnItsOwn {
 public:
  explicit BoxOnItsOwn(HWND source) {
    icon_ = GetClassLongPtrA(source, GCLP_HICON);
    hook_ = SetWindowsHookExA(WH_CBT, &Dress, nullptr, GetCurrentThreadId());
  }
  ~BoxOnItsOwn() {
    if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  }
  BoxOnItsOwn(const BoxOnItsOwn&) = delete;
  BoxOnItsOwn& operator=(const BoxOnItsOwn&) = delete;

 private:
  static LRESULT CALLBACK Dress(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const HWND box = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && IsBox(box)) {
      if (icon_ != 0) SendMessageA(box, WM_SETICON, ICON_BIG, static_cast<LPARAM>(icon_));
      SetWindowPos(box, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }
  static bool IsBox(HWND window) {
    char name[16] = {};
    GetClassNameA(window, name, sizeof(name));
    return lstrcmpA(name, "#32770") == 0;
  }

  static ULONG_PTR icon_;
  HHOOK hook_ = nullptr;
};

ULONG_PTR BoxOnItsOwn::icon_ = 0;

}  // namespace

Answer WindowsMessageBoxes::Ask(const MessageBoxRequest& request) {
  const HWND window = reinterpret_cast<HWND>(owner_);
  const UINT looks = IconFlag(request.icon) | ButtonFlags(request) | MB_SETFOREGROUND;
  int pressed = 0;
  if (window != nullptr && IsWindowVisible(window) != 0) {
    pressed = MessageBoxA(window, request.text.c_str(), kTitle, looks | MB_APPLMODAL);
  } else {
    const BoxOnItsOwn box(window);
    pressed = MessageBoxA(nullptr, request.text.c_str(), kTitle, looks | MB_TASKMODAL | MB_TOPMOST);
  }
  if (request.buttons == BoxButtons::Ok) return Answer::Ok;
  return pressed == IDYES ? Answer::Yes : Answer::No;
}

}  // namespace tarvo
