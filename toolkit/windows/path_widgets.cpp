#include "toolkit/windows/path_widgets.h"

#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <utility>

#include "toolkit/windows/drawing.h"

namespace tarvo {
namespace {

/// The part of an edit control in which its text is.
RECT TextPlace(HWND edit) {
  RECT place{};
  SendMessageA(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&place));
  return place;
}

/// A launcher with administrator rights gets no message from the desktop, which has none, unless
/// its window asks for it: the drop, and the two messages that hand over its record.
void LetDropsThrough(HWND window) {
  constexpr UINT kCopyGlobalData = 0x0049;  // No header names it.
  for (const UINT message : {UINT{WM_DROPFILES}, UINT{WM_COPYDATA}, kCopyGlobalData}) {
    ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
  }
}

}  // namespace

PathWidget::PathWidget(Stage& stage, HWND parent, int id, PathBox& box, std::string widest)
    : TextWidget(stage, parent, id, box, std::move(widest)), box_(box) {
  DragAcceptFiles(Window(), TRUE);
  LetDropsThrough(Window());
}

std::string PathWidget::Tip() const {
  const std::string tip = TextWidget::Tip();
  return tip.empty() ? control_.Text() : tip;
}

void PathWidget::Show() {
  TextWidget::Show();
  // The native control draws a new text by itself, without the ellipsis.
  InvalidateRect(Window(), nullptr, TRUE);
}

bool PathWidget::Cut() const {
  const RECT place = TextPlace(Window());
  return stage_.look.TextExtent(control_.Text(), false, true).width > place.right - place.left;
}

void PathWidget::Paint() {
  const Painting painting(Window());
  const HDC target = painting.Target();
  const bool enabled = IsWindowEnabled(Window()) != FALSE;
  RECT area{};
  GetClientRect(Window(), &area);
  Fill(target, area, GetSysColor(enabled ? COLOR_WINDOW : COLOR_3DFACE));
  const Selected font(target, stage_.look.Font());
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
  RECT place = TextPlace(Window());
  DrawTextA(target, control_.Text().c_str(), static_cast<int>(control_.Text().size()), &place,
            DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
}

void PathWidget::Dropped(WPARAM drop) {
  const auto files = reinterpret_cast<HDROP>(drop);
  const UINT length = DragQueryFileA(files, 0, nullptr, 0);
  std::string path(static_cast<std::size_t>(length) + 1, '\0');
  path.resize(DragQueryFileA(files, 0, path.data(), length + 1));
  DragFinish(files);
  stage_.Happens([this, &path] { box_.Drop(path); });
}

LRESULT PathWidget::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_DROPFILES:
      Dropped(w);
      return 0;
    case WM_PAINT:
      if (GetFocus() == Window() || !Cut()) break;
      Paint();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Window(), nullptr, TRUE);
      break;
    default:
      break;
  }
  return TextWidget::Handle(message, w, l);
}

PathLabelWidget::PathLabelWidget(Stage& stage, HWND parent, int id, Label& label,
                                 std::string widest)
    : LabelWidget(stage, parent, id, label, std::move(widest)) {
  const auto style = static_cast<DWORD>(GetWindowLongPtrA(Window(), GWL_STYLE));
  SetWindowLongPtrA(Window(), GWL_STYLE,
                    static_cast<LONG_PTR>((style & ~DWORD{SS_ELLIPSISMASK}) | SS_PATHELLIPSIS));
}

ArrowWidget::ArrowWidget(Stage& stage, HWND parent) : Widget(stage) {
  Create(parent, "STATIC", "", SS_OWNERDRAW, 0, -1);
}

Extent ArrowWidget::Natural() const { return {stage_.look.Px(20), stage_.look.ControlHeight()}; }

void ArrowWidget::Draw(const DRAWITEMSTRUCT& item) {
  const int middle = static_cast<int>(item.rcItem.top + item.rcItem.bottom) / 2;
  const int left = static_cast<int>(item.rcItem.left);
  const int right = static_cast<int>(item.rcItem.right) - 1;
  const int barb = stage_.look.Px(4);
  FillRect(item.hDC, &item.rcItem, stage_.look.PageBrush());
  const Pen pen(CreatePen(PS_SOLID, stage_.look.Px(1), GetSysColor(COLOR_BTNTEXT)));
  const Selected selected(item.hDC, pen.Get());
  const POINT shaft[] = {{left, middle}, {right, middle}};
  const POINT head[] = {
      {right - barb, middle - barb}, {right, middle}, {right - barb - 1, middle + barb + 1}};
  Polyline(item.hDC, shaft, 2);
  Polyline(item.hDC, head, 3);
}

}  // namespace tarvo
