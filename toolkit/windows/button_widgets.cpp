#include "toolkit/windows/button_widgets.h"

#include <algorithm>

#include "toolkit/windows/drawn_button.h"

namespace tarvo {
namespace {

constexpr int kMarkSquare =
    16;  ///< A check box or an option, and the little space around it, at 100 %.

void SetCheck(HWND window, bool checked) {
  const LRESULT now = SendMessageA(window, BM_GETCHECK, 0, 0);
  const WPARAM wanted = checked ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(now) != wanted) SendMessageA(window, BM_SETCHECK, wanted, 0);
}

void Press(HWND window) {
  if (!IsWindowEnabled(window)) return;
  SetFocus(window);
  PostMessageA(window, BM_CLICK, 0, 0);
}

Extent ButtonExtent(const Look& look, const std::string& text) {
  const int width = look.TextExtent(text).width + look.Px(24);
  return {std::max(width, look.Px(76)), look.ControlHeight()};
}

/// The size of a check box or an option with its text.
Extent MarkedExtent(const Look& look, const std::string& text) {
  return {look.Px(kMarkSquare) + look.TextExtent(text).width + look.Px(8), look.ControlHeight()};
}

}  // namespace

ButtonWidget::ButtonWidget(Stage& stage, HWND parent, int id, CommandButton& button)
    : Mirror(stage, button) {
  Create(parent, "BUTTON", button.Caption(), WS_TABSTOP | BS_PUSHBUTTON, 0, id);
  Attach();
}

Extent ButtonWidget::Natural() const { return ButtonExtent(stage_.look, control_.Caption()); }

void ButtonWidget::Command(int code) {
  if (code == BN_CLICKED) stage_.Happens([this] { control_.Click(); });
}

void ButtonWidget::Access() { Press(Window()); }

void ButtonWidget::SetAccessKey(char key) {
  Mirror::SetAccessKey(key);
  Show();
}

void ButtonWidget::Show() { SetText(Marked(control_.Caption(), AccessKey())); }

CheckWidget::CheckWidget(Stage& stage, HWND parent, int id, CheckBox& box, const std::string& text,
                         Kind kind)
    : Mirror(stage, box), kind_(kind) {
  Create(parent, "BUTTON", text, WS_TABSTOP | BS_CHECKBOX | BS_NOTIFY, 0, id);
  Attach();
}

Extent CheckWidget::Natural() const {
  const Look& look = stage_.look;
  if (BoxAlone()) return {look.Px(kMarkSquare), look.ControlHeight()};
  return MarkedExtent(look, TextOf(Window()));
}

void CheckWidget::Command(int code) {
  if (IsPress(code)) stage_.Happens([this] { control_.Click(); });
}

void CheckWidget::Access() { Press(Window()); }

void CheckWidget::Show() { SetCheck(Window(), control_.Checked()); }

OptionWidget::OptionWidget(Stage& stage, HWND parent, int id, OptionButton& option,
                           const std::string& text)
    : Mirror(stage, option) {
  Create(parent, "BUTTON", text, WS_TABSTOP | WS_GROUP | BS_RADIOBUTTON, 0, id);
  TakeMessages();
  Attach();
}

Extent OptionWidget::Natural() const { return MarkedExtent(stage_.look, TextOf(Window())); }

void OptionWidget::Command(int code) {
  if (IsPress(code) && !focusing_) stage_.Happens([this] { control_.Click(); });
}

void OptionWidget::Access() { Press(Window()); }

LRESULT OptionWidget::Handle(UINT message, WPARAM w, LPARAM l) {
  // The arrow keys, too, would press the option that they move to.
  if (message == WM_GETDLGCODE) return DLGC_BUTTON;
  if (message == WM_SETFOCUS) focusing_ = true;
  const LRESULT answer = Mirror::Handle(message, w, l);
  if (message == WM_SETFOCUS) focusing_ = false;
  return answer;
}

void OptionWidget::Show() { SetCheck(Window(), control_.Selected()); }

}  // namespace tarvo
