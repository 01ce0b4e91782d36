#include "ui/windows/drawn_button.h"

#include <commctrl.h>

#include "ui/control_ids.h"

namespace tarvo {

DrawnButton::DrawnButton(Stage& stage, HWND parent, int id, CommandButton& button,
                         const std::string& name)
    : Mirror(stage, button) {
  Create(parent, "BUTTON", name, WS_TABSTOP | BS_OWNERDRAW, 0, id);
  SetWindowSubclass(Window(), Track, 0, reinterpret_cast<DWORD_PTR>(this));
}

void DrawnButton::Command(int code) {
  if (code == BN_CLICKED) stage_.Happens([this] { control_.Click(); });
}

void DrawnButton::Access() {
  if (!IsWindowEnabled(Window())) return;
  SetFocus(Window());
  PostMessageA(Window(), BM_CLICK, 0, 0);
}

void DrawnButton::SetAccessKey(char key) {
  Mirror::SetAccessKey(key);
  SetPropA(Window(), kAccessKeyProperty, reinterpret_cast<HANDLE>(static_cast<INT_PTR>(key)));
}

void DrawnButton::Detach() {
  Mirror::Detach();
  RemovePropA(Window(), kAccessKeyProperty);
}

ButtonFace DrawnButton::FaceNow(const DRAWITEMSTRUCT& item) const {
  ButtonFace face;
  face.colour = GetSysColor(COLOR_BTNFACE);
  face.behind = stage_.look.PageColour();
  face.hot = hot_;
  face.pressed = (item.itemState & ODS_SELECTED) != 0;
  face.focused = (item.itemState & ODS_FOCUS) != 0;
  face.disabled = (item.itemState & ODS_DISABLED) != 0;
  face.corner = stage_.look.Px(5);
  return face;
}

void DrawnButton::SetHot(bool hot) {
  if (hot_ == hot) return;
  hot_ = hot;
  InvalidateRect(Window(), nullptr, FALSE);
  if (!hot) return;
  TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, Window(), 0};
  TrackMouseEvent(&request);
}

LRESULT CALLBACK DrawnButton::Track(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                    DWORD_PTR self) {
  auto* button = reinterpret_cast<DrawnButton*>(self);
  if (message == WM_MOUSEMOVE) button->SetHot(true);
  if (message == WM_MOUSELEAVE) button->SetHot(false);
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Track, id);
  return DefSubclassProc(window, message, w, l);
}

}  // namespace tarvo
