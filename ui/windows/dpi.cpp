#include "ui/windows/dpi.h"

namespace tarvo {
namespace {

/// Calls that only newer systems have are looked up, so that the program runs on older ones too.
template <class Function>
Function FindUserFunction(const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleA("user32.dll"), name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

using GetDpiForWindowCall = UINT(WINAPI*)(HWND);
using AdjustForDpiCall = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
using ParametersForDpiCall = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);

}  // namespace

int SystemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kPlainDpi;
}

int DpiOf(HWND window) {
  static const auto getDpi = FindUserFunction<GetDpiForWindowCall>("GetDpiForWindow");
  const int dpi = getDpi ? static_cast<int>(getDpi(window)) : 0;
  return dpi > 0 ? dpi : SystemDpi();
}

void GrowToWindow(RECT& rectangle, HWND window, int dpi) {
  static const auto adjust = FindUserFunction<AdjustForDpiCall>("AdjustWindowRectExForDpi");
  const auto style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
  const auto extended = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE));
  if (adjust && adjust(&rectangle, style, FALSE, extended, static_cast<UINT>(dpi))) return;
  AdjustWindowRectEx(&rectangle, style, FALSE, extended);
}

LOGFONTW MessageFontAt(int dpi) {
  static const auto parameters =
      FindUserFunction<ParametersForDpiCall>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (parameters &&
      parameters(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
    return metrics.lfMessageFont;
  }
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
  return metrics.lfMessageFont;
}

}  // namespace tarvo
