#include "ui/windows/light_widget.h"

#include <utility>

#include "ui/control_ids.h"
#include "ui/light_picture.h"

namespace tarvo {
namespace {

constexpr char kClass[] = "TarvoLight";
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
    : Mirror(stage, light), name_(std::move(name)) {
  RegisterClassOnce(stage.instance);
  Create(parent, kClass, name_, 0, 0, id);
  Attach();
}

void LightWidget::RegisterClassOnce(HINSTANCE instance) {
  WNDCLASSA record{};
  if (GetClassInfoA(instance, kClass, &record)) return;
  record.lpfnWndProc = Procedure;
  record.hInstance = instance;
  record.hCursor = LoadCursor(nullptr, IDC_ARROW);
  record.lpszClassName = kClass;
  RegisterClassA(&record);
}

Extent LightWidget::Natural() const { return {stage_.look.Px(kSize), stage_.look.Px(kSize)}; }

void LightWidget::TakeLook() {
  size_ = stage_.look.Px(kSize);
  picture_.clear();
  InvalidateRect(Window(), nullptr, FALSE);
}

void LightWidget::Detach() {
  Mirror::Detach();
  RemovePropA(Window(), kLightColourProperty);
}

std::string LightWidget::Tip() const {
  const std::string& more = control_.ToolTip();
  return TextOf(Window()) + (more.empty() ? "" : "\r\n" + more);
}

void LightWidget::Show() {
  const Colour fill = control_.Fill();
  SetPropA(Window(), kLightColourProperty,
           reinterpret_cast<HANDLE>(static_cast<INT_PTR>(fill) + 1));
  SetText(name_ + ": " + WordsOf(LightStateOf(fill)));
  picture_.clear();
  InvalidateRect(Window(), nullptr, FALSE);
}

void LightWidget::Paint() {
  PAINTSTRUCT paint{};
  const HDC target = BeginPaint(Window(), &paint);
  if (picture_.empty()) {
    picture_ = DrawLight(control_.Fill(), GetSysColor(COLOR_3DFACE), size_);
  }
  Blit(target, picture_, size_);
  EndPaint(Window(), &paint);
}

LRESULT CALLBACK LightWidget::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* light = static_cast<LightWidget*>(Widget::Of(window));
  if (light && message == WM_PAINT) {
    light->Paint();
    return 0;
  }
  if (message == WM_ERASEBKGND) return 1;
  // Mouse moves go to the parent, as those over a text do, so that both have tool tips alike.
  if (message == WM_NCHITTEST) return HTTRANSPARENT;
  return DefWindowProcA(window, message, w, l);
}

}  // namespace tarvo
