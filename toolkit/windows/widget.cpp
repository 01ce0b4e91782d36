#include "toolkit/windows/widget.h"

#include "platform/windows/window_class.h"

namespace tarvo {

void Widget::Create(HWND parent, const char* windowClass, const std::string& text, DWORD style,
                    DWORD extendedStyle, int id) {
  window_ = CreateWindowExA(extendedStyle, windowClass, text.c_str(), WS_CHILD | WS_VISIBLE | style,
                            0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            stage_.instance, nullptr);
  SetOwner(window_, this);
}

// In the letters that the control works with: none is lost on its way through the code page.
void Widget::TakeMessages() {
  const auto exchange = IsWindowUnicode(window_) ? &SetWindowLongPtrW : &SetWindowLongPtrA;
  native_ = reinterpret_cast<WNDPROC>(
      exchange(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TakeMessage)));
}

LRESULT CALLBACK Widget::TakeMessage(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  return Of(window)->Handle(message, w, l);
}

LRESULT Widget::Handle(UINT message, WPARAM w, LPARAM l) {
  const auto call = IsWindowUnicode(window_) ? &CallWindowProcW : &CallWindowProcA;
  return call(native_, window_, message, w, l);
}

Widget* Widget::Of(HWND window) { return window ? OwnerOf<Widget>(window) : nullptr; }

void Widget::TakeLook() {
  SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(stage_.look.Font()), FALSE);
}

void Widget::Refresh(const Control& control) {
  const bool enabled = IsWindowEnabled(window_) != FALSE;
  if (enabled != control.Enabled()) {
    // The focus must not stay on a window that takes no keys.
    if (enabled && GetFocus() == window_) {
      SetFocus(GetNextDlgTabItem(GetAncestor(window_, GA_ROOT), window_, FALSE));
    }
    EnableWindow(window_, control.Enabled());
  }
  Show();
}

void Widget::SetText(const std::string& text) {
  if (TextOf(window_) != text) SetWindowTextA(window_, text.c_str());
}

std::string TextOf(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
  const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace tarvo
