#include "ui/windows/button_face.h"

#include <algorithm>
#include <cctype>

#include "ui/readable.h"
#include "ui/windows/look.h"

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
  const HPEN pen = CreatePen(PS_SOLID, 1, BorderColour(face));
  const HBRUSH brush = CreateSolidBrush(FaceColour(face));
  const HGDIOBJ penBefore = SelectObject(target, pen);
  const HGDIOBJ brushBefore = SelectObject(target, brush);
  RoundRect(target, area.left, area.top, area.right, area.bottom, face.corner, face.corner);
  SelectObject(target, brushBefore);
  SelectObject(target, penBefore);
  DeleteObject(brush);
  DeleteObject(pen);
}

void DrawCaption(HDC target, RECT area, const ButtonFace& face, HFONT font) {
  const HGDIOBJ before = SelectObject(target, font);
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, InkColour(face));
  if (face.pressed) OffsetRect(&area, 1, 1);
  DrawTextA(target, Marked(face.caption, face.accessKey).c_str(), -1, &area,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | (face.showKey ? 0U : DT_HIDEPREFIX));
  SelectObject(target, before);
}

void DrawAll(HDC target, const RECT& area, const ButtonFace& face, HFONT font) {
  const HBRUSH behind = CreateSolidBrush(face.behind);
  FillRect(target, &area, behind);
  DeleteObject(behind);
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
  const HDC memory = CreateCompatibleDC(target);
  const HBITMAP bitmap = CreateCompatibleBitmap(target, area.right, area.bottom);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  DrawAll(memory, area, face, font);
  BitBlt(target, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

}  // namespace tarvo
