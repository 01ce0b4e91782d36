#include "toolkit/windows/list_widgets.h"

#include <algorithm>
#include <utility>

namespace tarvo {

ListBoxWidget::ListBoxWidget(Stage& stage, HWND parent, int id, ListBox& list, int lines,
                             std::string widest)
    : Mirror(stage, list), lines_(lines), widest_(std::move(widest)) {
  Create(parent, "LISTBOX", "",
         WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE,
         id);
  Attach();
}

Extent ListBoxWidget::Natural() const {
  const Look& look = stage_.look;
  const int line = static_cast<int>(SendMessageA(Window(), LB_GETITEMHEIGHT, 0, 0));
  return {look.TextExtent(widest_, false, true).width + GetSystemMetrics(SM_CXVSCROLL) + look.Px(8),
          lines_ * line + 2 * GetSystemMetrics(SM_CYEDGE)};
}

void ListBoxWidget::TakeLook() {
  Widget::TakeLook();
  MeasureItems();
}

int ListBoxWidget::Selection() const {
  return static_cast<int>(SendMessageA(Window(), LB_GETCURSEL, 0, 0));
}

void ListBoxWidget::Command(int code) {
  if (code != LBN_SELCHANGE) return;
  stage_.Happens([this] { control_.Choose(Selection()); });
  Show();
}

/// Items that fit the natural width get no scroll bar: it would cost a line, so the list would need
/// the other bar, and then both.
void ListBoxWidget::MeasureItems() {
  int widest = 0;
  for (const std::string& item : control_.Items()) {
    widest = std::max(widest, stage_.look.TextExtent(item, false, true).width);
  }
  const bool fits = widest <= stage_.look.TextExtent(widest_, false, true).width;
  SendMessageA(Window(), LB_SETHORIZONTALEXTENT,
               fits ? 0 : static_cast<WPARAM>(widest + stage_.look.Px(4)), 0);
}

void ListBoxWidget::ShowItems() {
  const std::vector<std::string>& items = control_.Items();
  const bool outdated = shownRemovals_ != control_.Removals();
  const auto shown = static_cast<std::size_t>(SendMessageA(Window(), LB_GETCOUNT, 0, 0));
  if (!outdated && shown == items.size()) return;
  SendMessageA(Window(), WM_SETREDRAW, FALSE, 0);
  const LRESULT top = SendMessageA(Window(), LB_GETTOPINDEX, 0, 0);
  if (outdated) SendMessageA(Window(), LB_RESETCONTENT, 0, 0);
  shownRemovals_ = control_.Removals();
  for (std::size_t i = outdated ? 0 : shown; i < items.size(); ++i) {
    SendMessageA(Window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(items[i].c_str()));
  }
  SendMessageA(Window(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
  MeasureItems();
  SendMessageA(Window(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Window(), nullptr, TRUE);
}

void ListBoxWidget::Show() {
  ShowItems();
  if (Selection() != control_.ListIndex()) {
    SendMessageA(Window(), LB_SETCURSEL, static_cast<WPARAM>(control_.ListIndex()), 0);
  }
}

ScrollWidget::ScrollWidget(Stage& stage, HWND parent, int id, ScrollBar& bar, int page)
    : Mirror(stage, bar), page_(page) {
  Create(parent, "SCROLLBAR", "", WS_TABSTOP | SBS_HORZ, 0, id);
  Attach();
}

Extent ScrollWidget::Natural() const {
  const Look& look = stage_.look;
  return {look.Px(56), std::min(look.ControlHeight(), look.Px(20))};
}

int ScrollWidget::Wanted(int code, int position) const {
  switch (code) {
    case SB_LINELEFT:
      return control_.Value() - 1;
    case SB_LINERIGHT:
      return control_.Value() + 1;
    case SB_PAGELEFT:
      return control_.Value() - page_;
    case SB_PAGERIGHT:
      return control_.Value() + page_;
    case SB_LEFT:
      return control_.Min();
    case SB_RIGHT:
      return control_.Max();
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return position;
    default:
      return control_.Value();
  }
}

void ScrollWidget::Scrolled(int code, int position) {
  const int wanted = Wanted(code, position);
  stage_.Happens([this, wanted] { control_.Scroll(wanted); });
  // A native thumb that was dropped out of range goes back.
  Show();
}

void ScrollWidget::Show() {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_POS;
  info.nMin = control_.Min();
  info.nMax = control_.Max();
  info.nPos = control_.Value();
  SetScrollInfo(Window(), SB_CTL, &info, TRUE);
}

}  // namespace tarvo
