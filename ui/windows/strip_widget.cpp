#include "ui/windows/strip_widget.h"

#include <algorithm>

#include "ui/status_colours.h"

namespace tarvo {
namespace {

constexpr char kClass[] = "TarvoStrip";
constexpr int kLeastWidth = 32;  ///< At 100 %, the frame included: four cells share a pixel there.
constexpr int kHeight = 16;

struct Bar {
  int sixths = 0;  ///< Of the strip's height.
  COLORREF colour = 0;

  bool operator==(const Bar&) const = default;
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

/// From column `begin` of the inside to the one before `end`.
void PaintBar(HDC target, const RECT& inside, const Bar& bar, std::size_t begin, std::size_t end) {
  const LONG height = inside.bottom - inside.top;
  const RECT area = {inside.left + static_cast<LONG>(begin),
                     inside.bottom - (height * bar.sixths + 5) / 6,
                     inside.left + static_cast<LONG>(end), inside.bottom};
  if (IsRectEmpty(&area)) return;
  SetDCBrushColor(target, HighContrast() ? GetSysColor(COLOR_WINDOWTEXT) : bar.colour);
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
  return {stage_.look.Px(kLeastWidth - 2) + 2, stage_.look.Px(kHeight)};
}

void StripWidget::Show() {
  SetText(control_.ToolTip());
  InvalidateRect(Window(), nullptr, FALSE);
}

/// One trouble among several cells that share a place is seen; otherwise the newest one counts.
StripState StripWidget::StateAt(std::size_t x, std::size_t width) const {
  const std::size_t first = x * StatusStrip::kCells / width;
  const std::size_t end = std::max(first + 1, (x + 1) * StatusStrip::kCells / width);
  for (std::size_t i = first; i < end; ++i) {
    if (control_.Cell(i) == StripState::Trouble) return StripState::Trouble;
  }
  return control_.Cell(end - 1);
}

/// Neighbours that look alike are filled at once.
void StripWidget::PaintBars(HDC target, const RECT& inside) const {
  const auto width = static_cast<std::size_t>(std::max(inside.right - inside.left, 1L));
  Bar bar;
  std::size_t begin = 0;
  for (std::size_t x = 0; x <= width; ++x) {
    const Bar next = x < width ? BarOf(StateAt(x, width)) : Bar{};
    if (x < width && next == bar) continue;
    PaintBar(target, inside, bar, begin, x);
    bar = next;
    begin = x;
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
