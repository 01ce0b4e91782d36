#include "form/windows/light_widget.h"

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

}  // namespace tarvo
