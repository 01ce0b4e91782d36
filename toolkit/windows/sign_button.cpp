#include "toolkit/windows/sign_button.h"

#include "toolkit/button_properties.h"
#include "toolkit/readable.h"
#include "toolkit/windows/drawing.h"

namespace tarvo {
namespace {

constexpr Colour kPlusColour = Rgb(0, 112, 0);
constexpr Colour kMinusColour = Rgb(176, 0, 0);

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

}  // namespace tarvo
