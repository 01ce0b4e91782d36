#include "toolkit/windows/drawn_button.h"

#include <algorithm>
#include <cctype>

#include "toolkit/button_properties.h"
#include "toolkit/readable.h"
#include "toolkit/windows/drawing.h"
#include "toolkit/windows/look.h"

namespace tarvo {

DrawnButton::DrawnButton(Stage& stage, HWND parent, int id, CommandButton& button,
                         const std::string& name)
    : Mirror(stage, button) {
  Create(parent, "BUTTON", name, WS_TABSTOP | BS_OWNERDRAW, 0, id);
  TakeMessages();
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

LRESULT DrawnButton::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_MOUSEMOVE) SetHot(true);
  if (message == WM_MOUSELEAVE) SetHot(false);
  if (message == WM_ERASEBKGND) return 1;
  return Mirror::Handle(message, w, l);
}

namespace {

constexpr Colour kPlusColour = Rgb(0, 112, 0);
constexpr Colour kMinusColour = Rgb(176, 0, 0);

/// A colour moved towards white (positive) or black (negative) by so many 256ths.
Colour Shade(Colour colour, int amount) {
  Colour shaded = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const int part = static_cast<int>(colour >> shift & 0xFF);
    const int goal = amount > 0 ? 255 - part : part;
    shaded |= static_cast<Colour>(part + goal * amount / 256) << shift;
  }
  return shaded;
}

Colour FaceColour(const ButtonFace& face) {
  if (HighContrast()) return GetSysColor(COLOR_BTNFACE);
  if (face.disabled) return Shade(face.colour, 128);
  if (face.pressed) return Shade(face.colour, -40);
  return face.hot ? Shade(face.colour, 80) : face.colour;
}

Colour BorderColour(const ButtonFace& face) {
  if (HighContrast()) return GetSysColor(COLOR_BTNTEXT);
  return Shade(face.colour, IsDark(face.colour) ? 110 : -110);
}

Colour InkColour(const ButtonFace& face) {
  if (face.disabled) return GetSysColor(COLOR_GRAYTEXT);
  return HighContrast() ? GetSysColor(COLOR_BTNTEXT) : Rgb(0, 0, 0);
}

void FillRounded(HDC target, const RECT& area, const ButtonFace& face) {
  SetDCPenColor(target, BorderColour(face));
  SetDCBrushColor(target, FaceColour(face));
  const Selected pen(target, GetStockObject(DC_PEN));
  const Selected brush(target, GetStockObject(DC_BRUSH));
  RoundRect(target, area.left, area.top, area.right, area.bottom, face.corner, face.corner);
}

void DrawCaption(HDC target, RECT area, const ButtonFace& face, HFONT font) {
  const Selected selected(target, font);
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, InkColour(face));
  if (face.pressed) OffsetRect(&area, 1, 1);
  DrawTextA(target, Marked(face.caption, face.accessKey).c_str(), -1, &area,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | (face.showKey ? 0U : DT_HIDEPREFIX));
}

void DrawAll(HDC target, const RECT& area, const ButtonFace& face, HFONT font) {
  Fill(target, area, face.behind);
  FillRounded(target, area, face);
  DrawCaption(target, area, face, font);
  if (!face.focused) return;
  RECT ring = area;
  InflateRect(&ring, -3, -3);
  SetTextColor(target, InkColour(face));
  SetBkColor(target, FaceColour(face));
  DrawFocusRect(target, &ring);
}

}  // namespace

SignButton::SignButton(Stage& stage, HWND parent, int id, CommandButton& button, Sign sign,
                       const std::string& name)
    : DrawnButton(stage, parent, id, button, name), sign_(sign) {
  SetPropA(Window(), kPictureProperty, reinterpret_cast<HANDLE>(1));
  Attach();
}

Extent SignButton::Natural() const {
  const int side = stage_.look.ControlHeight();
  return {side + stage_.look.Px(4), side};
}

void SignButton::Command(int code) { DrawnButton::Command(IsPress(code) ? BN_CLICKED : code); }

void SignButton::Detach() {
  DrawnButton::Detach();
  RemovePropA(Window(), kPictureProperty);
}

void SignButton::Draw(const DRAWITEMSTRUCT& item) {
  const ButtonFace face = FaceNow(item);
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
  const RECT across{left - arm, top, left + thick + arm, top + thick};
  Fill(target, across, ink);
  const RECT upright{left, top - arm, left + thick, top + thick + arm};
  if (sign_ == Sign::Plus) Fill(target, upright, ink);
}

std::string Marked(std::string caption, char accessKey) {
  const auto letter = std::find_if(caption.begin(), caption.end(), [accessKey](char c) {
    return std::tolower(static_cast<unsigned char>(c)) == accessKey;
  });
  if (letter != caption.end()) caption.insert(letter, '&');
  return caption;
}

void DrawButtonFace(HDC target, const RECT& area, const ButtonFace& face, HFONT font) {
  const Canvas canvas(target, {area.right, area.bottom});
  DrawAll(canvas.Target(), area, face, font);
  canvas.Show();
}

}  // namespace tarvo
