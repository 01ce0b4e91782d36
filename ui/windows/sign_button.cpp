#include "ui/windows/sign_button.h"

#include <commctrl.h>

#include "ui/control_ids.h"
#include "ui/readable.h"
#include "ui/windows/button_face.h"

namespace tarvo {
namespace {

constexpr Colour kPlusColour = Rgb(0, 112, 0);
constexpr Colour kMinusColour = Rgb(176, 0, 0);

}  // namespace

SignButton::SignButton(Stage& stage, HWND parent, int id, CommandButton& button, Sign sign,
                       const std::string& name)
    : Mirror(stage, button), sign_(sign) {
  Create(parent, "BUTTON", name, WS_TABSTOP | BS_OWNERDRAW, 0, id);
  SetPropA(Window(), kPictureProperty, reinterpret_cast<HANDLE>(1));
  SetWindowSubclass(Window(), Track, 0, reinterpret_cast<DWORD_PTR>(this));
  Attach();
}

Extent SignButton::Natural() const {
  const int side = stage_.look.ControlHeight();
  return {side + stage_.look.Px(4), side};
}

void SignButton::Command(int code) {
  if (code == BN_CLICKED) stage_.Happens([this] { control_.Click(); });
}

void SignButton::Access() {
  if (!IsWindowEnabled(Window())) return;
  SetFocus(Window());
  PostMessageA(Window(), BM_CLICK, 0, 0);
}

void SignButton::Draw(const DRAWITEMSTRUCT& item) {
  ButtonFace face;
  face.colour = GetSysColor(COLOR_BTNFACE);
  face.behind = stage_.look.PageColour();
  face.hot = hot_;
  face.pressed = (item.itemState & ODS_SELECTED) != 0;
  face.focused = (item.itemState & ODS_FOCUS) != 0;
  face.disabled = (item.itemState & ODS_DISABLED) != 0;
  face.corner = stage_.look.Px(5);
  DrawButtonFace(item.hDC, item.rcItem, face, stage_.look.Font());
  RECT area = item.rcItem;
  if (face.pressed) OffsetRect(&area, 1, 1);
  DrawSign(item.hDC, area, face.disabled);
}

void SignButton::DrawSign(HDC target, RECT area, bool disabled) const {
  const int thick = stage_.look.Px(2);
  const int arm = stage_.look.Px(5);
  Colour ink = sign_ == Sign::Plus ? kPlusColour : kMinusColour;
  ink = Readable(ink, GetSysColor(COLOR_BTNFACE));
  if (HighContrast()) ink = GetSysColor(COLOR_BTNTEXT);
  if (disabled) ink = GetSysColor(COLOR_GRAYTEXT);
  const LONG left = (area.left + area.right - thick) / 2;
  const LONG top = (area.top + area.bottom - thick) / 2;
  const HBRUSH brush = CreateSolidBrush(ink);
  const RECT across{left - arm, top, left + thick + arm, top + thick};
  FillRect(target, &across, brush);
  const RECT upright{left, top - arm, left + thick, top + thick + arm};
  if (sign_ == Sign::Plus) FillRect(target, &upright, brush);
  DeleteObject(brush);
}

void SignButton::SetHot(bool hot) {
  if (hot_ == hot) return;
  hot_ = hot;
  InvalidateRect(Window(), nullptr, FALSE);
  if (!hot) return;
  TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, Window(), 0};
  TrackMouseEvent(&request);
}

LRESULT CALLBACK SignButton::Track(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                   DWORD_PTR self) {
  auto* button = reinterpret_cast<SignButton*>(self);
  if (message == WM_MOUSEMOVE) button->SetHot(true);
  if (message == WM_MOUSELEAVE) button->SetHot(false);
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_NCDESTROY) {
    RemovePropA(window, kPictureProperty);
    RemoveWindowSubclass(window, Track, id);
  }
  return DefSubclassProc(window, message, w, l);
}

}  // namespace tarvo
