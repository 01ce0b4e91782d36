#include "form/windows/frame_keys.h"

#include <cctype>

namespace tarvo {
namespace {

bool IsPushButton(HWND window) {
  const LRESULT code = SendMessageA(window, WM_GETDLGCODE, 0, 0);
  return (code & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) != 0;
}

}  // namespace

bool IsKeyDown(int key) { return (GetKeyState(key) & 0x8000) != 0; }

bool TakeEnterKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN) return false;
  const bool dropped = SendMessageA(message.hwnd, CB_GETDROPPEDSTATE, 0, 0) != 0;
  if (dropped) return false;
  if (IsPushButton(message.hwnd)) PostMessageA(message.hwnd, BM_CLICK, 0, 0);
  return true;
}

/// Ctrl+Tab and Ctrl+Page Down go to the next page, with Shift or Page Up to the one before.
bool FrameKeys::PageKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || !IsKeyDown(VK_CONTROL) || IsKeyDown(VK_MENU)) return false;
  if (message.wParam == VK_TAB) {
    tabs_.Step(IsKeyDown(VK_SHIFT) ? -1 : 1);
  } else if (message.wParam == VK_NEXT) {
    tabs_.Step(1);
  } else if (message.wParam == VK_PRIOR) {
    tabs_.Step(-1);
  } else {
    return false;
  }
  return true;
}

/// The keys of a search go to the log wherever the focus is, while the log is visible.
bool FrameKeys::SearchKey(const MSG& message) {
  const bool find = message.wParam == 'F' && IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
  if (message.message != WM_KEYDOWN || !(find || message.wParam == VK_F3)) return false;
  const HWND log = log_();
  if (!IsWindowVisible(log)) return false;
  SendMessageA(log, WM_KEYDOWN, message.wParam, message.lParam);
  return true;
}

/// The search dialog of the log is a window of its own beside the main one.
bool FrameKeys::TakeOfDialog(MSG& message) {
  const HWND top = GetAncestor(message.hwnd, GA_ROOT);
  return top && top != window_ && GetWindow(top, GW_OWNER) == window_ &&
         GetClassLongPtrA(top, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG) &&
         IsDialogMessageA(top, &message);
}

/// Access keys press or focus at once; the dialog manager would only focus the start buttons, whose
/// keys are in the names beside them.
bool FrameKeys::AccessKey(const MSG& message) {
  if (message.message != WM_SYSCHAR) return false;
  const auto key = static_cast<unsigned char>(message.wParam);
  return key > ' ' && shownPage_().Access(static_cast<char>(std::tolower(key)));
}

bool FrameKeys::Take(MSG& message) {
  return SearchKey(message) || PageKey(message) || AccessKey(message) || TakeEnterKey(message) ||
         IsDialogMessageA(window_, &message);
}

}  // namespace tarvo
