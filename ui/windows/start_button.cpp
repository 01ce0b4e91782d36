#include "ui/windows/start_button.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "ui/windows/button_face.h"

namespace tarvo {

StartButton::StartButton(Stage& stage, HWND parent, int id, CommandButton& button,
                         std::string widest)
    : Mirror(stage, button), widest_(std::move(widest)) {
  Create(parent, "BUTTON", button.Caption(), WS_TABSTOP | BS_OWNERDRAW, 0, id);
  SetWindowSubclass(Window(), Track, 0, reinterpret_cast<DWORD_PTR>(this));
  Attach();
}

StartButton::~StartButton() = default;

Extent StartButton::Natural() const {
  const Look& look = stage_.look;
  const int width = look.TextExtent(widest_, false, true).width + look.Px(28);
  return {std::max(width, look.Px(76)), look.ControlHeight() + look.Px(4)};
}

void StartButton::Command(int code) {
  if (code == BN_CLICKED) stage_.Happens([this] { control_.Click(); });
}

void StartButton::Access() {
  if (!IsWindowEnabled(Window())) return;
  SetFocus(Window());
  PostMessageA(Window(), BM_CLICK, 0, 0);
}

void StartButton::Show() {
  SetText(control_.Caption());
  if (shown_ == control_.Background()) return;
  shown_ = control_.Background();
  InvalidateRect(Window(), nullptr, FALSE);
}

void StartButton::Draw(const DRAWITEMSTRUCT& item) {
  ButtonFace face;
  face.caption = control_.Caption();
  face.accessKey = AccessKey();
  face.showKey = (item.itemState & ODS_NOACCEL) == 0;
  face.colour = control_.Background();
  face.behind = stage_.look.PageColour();
  face.hot = hot_;
  face.pressed = (item.itemState & ODS_SELECTED) != 0;
  face.focused = (item.itemState & ODS_FOCUS) != 0;
  face.disabled = (item.itemState & ODS_DISABLED) != 0;
  face.corner = stage_.look.Px(5);
  DrawButtonFace(item.hDC, item.rcItem, face, stage_.look.Font());
}

void StartButton::SetHot(bool hot) {
  if (hot_ == hot) return;
  hot_ = hot;
  InvalidateRect(Window(), nullptr, FALSE);
  if (!hot) return;
  TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, Window(), 0};
  TrackMouseEvent(&request);
}

LRESULT CALLBACK StartButton::Track(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                    DWORD_PTR self) {
  auto* button = reinterpret_cast<StartButton*>(self);
  if (message == WM_MOUSEMOVE) button->SetHot(true);
  if (message == WM_MOUSELEAVE) button->SetHot(false);
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Track, id);
  return DefSubclassProc(window, message, w, l);
}

}  // namespace tarvo
