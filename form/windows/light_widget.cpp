#include "form/windows/light_widget.h"

#include <algorithm>
#include <utility>

#include "form/control_ids.h"
#include "form/status_colours.h"
#include "toolkit/state_picture.h"

namespace tarvo {
namespace {

constexpr int kSize = 20;  ///< At 100 %.

void Blit(HDC target, const std::vector<std::uint32_t>& picture, int size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size;
  info.bmiHeader.biHeight = -size;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  SetDIBitsToDevice(target, 0, 0, static_cast<DWORD>(size), static_cast<DWORD>(size), 0, 0, 0,
                    static_cast<UINT>(size), picture.data(), &info, DIB_RGB_COLORS);
}

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

/// Columns of the inside, from `begin` to the one before `end`.
void PaintBar(HDC target, const RECT& inside, const Bar& bar, std::size_t begin, std::size_t end) {
  const LONG height = inside.bottom - inside.top;
  const RECT area = {inside.left + static_cast<LONG>(begin),
                     inside.bottom - (height * bar.sixths + 5) / 6,
                     inside.left + static_cast<LONG>(end), inside.bottom};
  if (IsRectEmpty(&area)) return;
  Fill(target, area, HighContrast() ? GetSysColor(COLOR_WINDOWTEXT) : bar.colour);
}

}  // namespace

LightWidget::LightWidget(Stage& stage, HWND parent, int id, Light& light, std::string name)
    : PaintedWidget(stage, parent, id, light, "TarvoLight", name), name_(std::move(name)) {
  Attach();
}

Extent LightWidget::Natural() const { return {stage_.look.Px(kSize), stage_.look.Px(kSize)}; }

void LightWidget::TakeLook() {
  size_ = stage_.look.Px(kSize);
  picture_.clear();
  Repaint();
}

void LightWidget::Detach() {
  PaintedWidget::Detach();
  RemovePropA(Window(), kLightColourProperty);
}

std::string LightWidget::Tip() const {
  const std::string& more = control_.ToolTip();
  return TextOf(Window()) + (more.empty() ? "" : "\r\n" + more);
}

void LightWidget::Show() {
  const LightState state = control_.State();
  SetPropA(Window(), kLightColourProperty,
           reinterpret_cast<HANDLE>(static_cast<INT_PTR>(ColourOf(state)) + 1));
  SetText(name_ + ": " + WordsOf(state));
  picture_.clear();
  Repaint();
}

void LightWidget::Paint(HDC target) {
  if (picture_.empty()) {
    const LightState state = control_.State();
    picture_ = DrawLight(state, ColourOf(state), GetSysColor(COLOR_3DFACE), size_);
  }
  Blit(target, picture_, size_);
}

StripWidget::StripWidget(Stage& stage, HWND parent, int id, StatusStrip& strip)
    : PaintedWidget(stage, parent, id, strip, "TarvoStrip", "") {
  Attach();
}

Extent StripWidget::Natural() const {
  return {stage_.look.Px(kLeastWidth - 2) + 2, stage_.look.Px(kHeight)};
}

void StripWidget::Show() {
  SetText(control_.ToolTip());
  Repaint();
}

/// Of several cells that share a column, one in trouble is shown; otherwise the newest one.
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

void StripWidget::Paint(HDC target) {
  RECT area{};
  GetClientRect(Window(), &area);
  const Canvas canvas(target, {area.right, area.bottom});
  Fill(canvas.Target(), area, GetSysColor(COLOR_WINDOW));
  DrawFrame(canvas.Target(), area, GetSysColor(COLOR_3DSHADOW));
  RECT inside = area;
  InflateRect(&inside, -1, -1);
  PaintBars(canvas.Target(), inside);
  canvas.Show();
}

}  // namespace tarvo
