#include "ui/windows/strip_widget.h"

#include <algorithm>

#include "ui/status_colours.h"

namespace tarvo {
namespace {

constexpr char kClass[] = "TarvoStrip";
constexpr int kWidth = 62;  ///< At 100 %, the frame included: two cells share a pixel there.
constexpr int kHeight = 16;

struct Bar {
  int sixths;  ///< Of the strip's height.
  COLORREF colour;
};

Bar BarOf(StripState state) {
  switch (state) {
    case StripState::Trouble:
      return {6, kTroubleLight};
    case StripState::Healthy:
      return {3, kHealthyLight};
    case StripState::NotWatched:
      return {2, kStoppedLight};
    case StripState::Stopped:
      return {1, kStoppedLight};
    case StripState::Unseen:
      break;
  }
  return {0, 0};
}

void Fill(HDC target, const RECT& area, COLORREF colour) {
  SetDCBrushColor(target, colour);
  FillRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace

StripWidget::StripWidget(Stage& stage, HWND parent, int id, StatusStrip& strip)
    : Mirror(stage, strip) {
  RegisterClassOnce(stage.instance);
  Create(parent, kClass, "", 0, 0, id);
  Attach();
}

void StripWidget::RegisterClassOnce(HINSTANCE instance) {
  WNDCLASSA record{};
  if (GetClassInfoA(instance, kClass, &record)) return;
  record.style = CS_HREDRAW | CS_VREDRAW;
  record.lpfnWndProc = Procedure;
  record.hInstance = instance;
  record.hCursor = LoadCursor(nullptr, IDC_ARROW);
  record.lpszClassName = kClass;
  RegisterClassA(&record);
}

Extent StripWidget::Natural() const {
  return {stage_.look.Px(kWidth - 2) + 2, stage_.look.Px(kHeight)};
}

void StripWidget::Show() {
  SetText(control_.ToolTip());
  InvalidateRect(Window(), nullptr, FALSE);
}

/// One trouble among several cells that share a place is seen; otherwise the newest one counts.
StripState StripWidget::StateBetween(std::size_t first, std::size_t end) const {
  for (std::size_t i = first; i < end; ++i) {
    if (control_.Cell(i) == StripState::Trouble) return StripState::Trouble;
  }
  return control_.Cell(end - 1);
}

void StripWidget::PaintBars(HDC target, const RECT& inside) const {
  const auto width = static_cast<std::size_t>(std::max(inside.right - inside.left, 1L));
  const LONG height = inside.bottom - inside.top;
  const bool plain = HighContrast();
  for (std::size_t x = 0; x < width; ++x) {
    const std::size_t first = x * StatusStrip::kCells / width;
    const std::size_t end = std::max(first + 1, (x + 1) * StatusStrip::kCells / width);
    const Bar bar = BarOf(StateBetween(first, end));
    const LONG left = inside.left + static_cast<LONG>(x);
    const LONG top = inside.bottom - (height * bar.sixths + 5) / 6;
    Fill(target, {left, top, left + 1, inside.bottom},
         plain ? GetSysColor(COLOR_WINDOWTEXT) : bar.colour);
  }
}

void StripWidget::Paint() {
  PAINTSTRUCT paint{};
  const HDC screen = BeginPaint(Window(), &paint);
  RECT area{};
  GetClientRect(Window(), &area);
  const HDC target = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, area.right, area.bottom);
  const HGDIOBJ before = SelectObject(target, bitmap);
  FillRect(target, &area, GetSysColorBrush(COLOR_WINDOW));
  FrameRect(target, &area, GetSysColorBrush(COLOR_3DSHADOW));
  RECT inside = area;
  InflateRect(&inside, -1, -1);
  PaintBars(target, inside);
  BitBlt(screen, 0, 0, area.right, area.bottom, target, 0, 0, SRCCOPY);
  SelectObject(target, before);
  DeleteObject(bitmap);
  DeleteDC(target);
  EndPaint(Window(), &paint);
}

LRESULT CALLBACK StripWidget::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* strip = static_cast<StripWidget*>(Widget::Of(window));
  if (strip && message == WM_PAINT) {
    strip->Paint();
    return 0;
  }
  if (message == WM_ERASEBKGND) return 1;
  // Mouse moves go to the parent, as those over a text do, so that both have tool tips alike.
  if (message == WM_NCHITTEST) return HTTRANSPARENT;
  return DefWindowProcA(window, message, w, l);
}

}  // namespace tarvo
