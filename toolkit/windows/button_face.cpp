#include "toolkit/windows/button_face.h"

#include <algorithm>
#include <cctype>

#include "toolkit/readable.h"
#include "toolkit/windows/drawing.h"
#include "toolkit/windows/look.h"

namespace tarvo {
namespace {

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
