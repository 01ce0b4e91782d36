#include "ui/windows/button_widgets.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr int kCheckSquare = 16;  ///< The box and what little lies around it, at 100 %.

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

CheckWidget::CheckWidget(Stage& stage, HWND parent, int id, CheckBox& box, const std::string& text,
                         Kind kind)
    : Mirror(stage, box), kind_(kind) {
  Create(parent, "BUTTON", text, WS_TABSTOP | BS_CHECKBOX | BS_NOTIFY, 0, id);
  Attach();
}

Extent CheckWidget::Natural() const {
  const Look& look = stage_.look;
  const int square = look.Px(kCheckSquare);
  if (BoxAlone()) return {square, look.ControlHeight()};
  return {square + look.TextExtent(TextOf(Window())).width + look.Px(8), look.ControlHeight()};
}

void CheckWidget::Command(int code) {
  if (code == BN_CLICKED) stage_.Happens([this] { control_.Click(); });
}

void CheckWidget::Access() { Press(Window()); }

void CheckWidget::Show() { SetCheck(Window(), control_.Checked()); }

OptionWidget::OptionWidget(Stage& stage, HWND parent, int id, OptionButton& option,
                           const std::string& text)
    : Mirror(stage, option) {
  Create(parent, "BUTTON", text, WS_TABSTOP | BS_CHECKBOX | BS_PUSHLIKE, 0, id);
  Attach();
}

Extent OptionWidget::Natural() const { return ButtonExtent(stage_.look, TextOf(Window())); }

void OptionWidget::Command(int code) {
  if (code == BN_CLICKED) stage_.Happens([this] { control_.Click(); });
}

void OptionWidget::Access() { Press(Window()); }

void OptionWidget::Show() { SetCheck(Window(), control_.Selected()); }

}  // namespace tarvo
