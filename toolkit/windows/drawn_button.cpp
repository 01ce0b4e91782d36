#include "toolkit/windows/drawn_button.h"

#include "toolkit/button_properties.h"
#include "toolkit/windows/subclass.h"

namespace tarvo {

DrawnButton::DrawnButton(Stage& stage, HWND parent, int id, CommandButton& button,
                         const std::string& name)
    : Mirror(stage, button) {
  Create(parent, "BUTTON", name, WS_TABSTOP | BS_OWNERDRAW, 0, id);
  Subclass<&DrawnButton::Track>(Window(), *this);
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

LRESULT DrawnButton::Track(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_MOUSEMOVE) SetHot(true);
  if (message == WM_MOUSELEAVE) SetHot(false);
  if (message == WM_ERASEBKGND) return 1;
  return DefSubclassProc(Window(), message, w, l);
}

}  // namespace tarvo
