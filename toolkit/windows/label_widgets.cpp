#include "toolkit/windows/label_widgets.h"

#include <utility>

#include "toolkit/control.h"
#include "toolkit/windows/drawing.h"
#include "toolkit/windows/panel.h"

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

namespace {

constexpr Colour kAmber = Rgb(255, 236, 179);
constexpr Colour kAmberFrame = Rgb(224, 160, 32);
constexpr Colour kAmberInk = Rgb(102, 51, 0);

}  // namespace

HeadingWidget::HeadingWidget(Stage& stage, HWND parent, const std::string& text) : Widget(stage) {
  Create(parent, "STATIC", text, SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, 0, -1);
}

Extent HeadingWidget::Natural() const {
  const Extent text = stage_.look.TextExtent(TextOf(Window()), true, true);
  return {text.width, text.height};
}

void HeadingWidget::TakeLook() {
  SendMessageA(Window(), WM_SETFONT, reinterpret_cast<WPARAM>(stage_.look.BoldFont()), FALSE);
}

WarningWidget::WarningWidget(Stage& stage, HWND parent, const std::string& text) : Widget(stage) {
  Create(parent, "STATIC", text, SS_OWNERDRAW | SS_NOPREFIX, 0, -1);
}

Extent WarningWidget::Natural() const {
  const Look& look = stage_.look;
  return {look.TextExtent(TextOf(Window()), true, true).width + look.Px(44),
          look.ControlHeight() + look.Px(4)};
}

int WarningWidget::Overhang() const { return stage_.look.Px(Panel::kCardPadding); }

void WarningWidget::Draw(const DRAWITEMSTRUCT& item) {
  const Look& look = stage_.look;
  const bool plain = HighContrast();
  Fill(item.hDC, item.rcItem, plain ? GetSysColor(COLOR_WINDOW) : kAmber);
  DrawFrame(item.hDC, item.rcItem, plain ? GetSysColor(COLOR_WINDOWTEXT) : kAmberFrame);
  const int sign = look.Px(16);
  const int top = static_cast<int>(item.rcItem.bottom - sign) / 2;
  DrawIconEx(item.hDC, look.Px(8), top, LoadIcon(nullptr, IDI_WARNING), sign, sign, 0, nullptr,
             DI_NORMAL);
  RECT room = item.rcItem;
  room.left += look.Px(32);
  const Selected font(item.hDC, look.BoldFont());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, plain ? GetSysColor(COLOR_WINDOWTEXT) : kAmberInk);
  DrawTextA(item.hDC, TextOf(Window()).c_str(), -1, &room,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

}  // namespace tarvo
