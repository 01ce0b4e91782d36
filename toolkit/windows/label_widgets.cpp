#include "toolkit/windows/label_widgets.h"

#include <utility>

namespace tarvo {

CaptionWidget::CaptionWidget(Stage& stage, HWND parent, const std::string& text) : Widget(stage) {
  Create(parent, "STATIC", text, SS_LEFT | SS_CENTERIMAGE, 0, -1);
}

Extent CaptionWidget::Natural() const {
  return {stage_.look.TextExtent(TextOf(Window())).width, stage_.look.ControlHeight()};
}

HiddenNameWidget::HiddenNameWidget(Stage& stage, HWND parent, const std::string& text)
    : Widget(stage) {
  Create(parent, "STATIC", text, SS_LEFT, 0, -1);
}

LabelWidget::LabelWidget(Stage& stage, HWND parent, int id, Label& label, std::string widest,
                         bool bold)
    : Mirror(stage, label), widest_(std::move(widest)), bold_(bold) {
  Create(parent, "STATIC", "", SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX | SS_ENDELLIPSIS, 0, id);
  Attach();
}

Extent LabelWidget::Natural() const {
  return {stage_.look.TextExtent(widest_, bold_, true).width, stage_.look.ControlHeight()};
}

void LabelWidget::TakeLook() {
  const HFONT font = bold_ ? stage_.look.BoldFont() : stage_.look.Font();
  SendMessageA(Window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

std::string LabelWidget::Tip() const {
  RECT room{};
  GetClientRect(Window(), &room);
  const bool cut = stage_.look.TextExtent(control_.Caption(), bold_, true).width > room.right;
  return cut ? control_.Caption() : Mirror::Tip();
}

}  // namespace tarvo
