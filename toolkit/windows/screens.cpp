#include "toolkit/windows/screens.h"

#include "toolkit/windows/drawing.h"

namespace tarvo {
namespace {

Place ToPlace(const RECT& rectangle) {
  return {static_cast<int>(rectangle.left), static_cast<int>(rectangle.top),
          static_cast<int>(rectangle.right - rectangle.left),
          static_cast<int>(rectangle.bottom - rectangle.top)};
}

Place WorkAreaOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoA(monitor, &info);
  return ToPlace(info.rcWork);
}

BOOL CALLBACK Take(HMONITOR monitor, HDC /*target*/, RECT* /*area*/, LPARAM screens) noexcept {
  reinterpret_cast<std::vector<Place>*>(screens)->push_back(WorkAreaOf(monitor));
  return TRUE;
}

constexpr char kLibrary[] = "user32.dll";

using AdjustForDpiCall = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
using ParametersForDpiCall = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);

}  // namespace

std::vector<Place> Screens() {
  std::vector<Place> screens;
  EnumDisplayMonitors(nullptr, nullptr, Take, reinterpret_cast<LPARAM>(&screens));
  return screens;
}

Place ScreenOf(HWND window) {
  return WorkAreaOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
}

Place PlaceOf(HWND window) {
  RECT rectangle{};
  GetWindowRect(window, &rectangle);
  return ToPlace(rectangle);
}

int SystemDpi() {
  const int dpi = GetDeviceCaps(ScreenContext().Get(), LOGPIXELSY);
  return dpi > 0 ? dpi : kPlainDpi;
}

int DpiOf(HWND window) {
  const int dpi = MonitorDpiOf(window);
  return dpi > 0 ? dpi : SystemDpi();
}

void GrowToWindow(RECT& rectangle, HWND window, int dpi) {
  static const auto adjust = LateCall<AdjustForDpiCall>(kLibrary, "AdjustWindowRectExForDpi");
  const auto style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
  const auto extended = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE));
  if (adjust && adjust(&rectangle, style, FALSE, extended, static_cast<UINT>(dpi))) return;
  AdjustWindowRectEx(&rectangle, style, FALSE, extended);
}

LOGFONTW MessageFontAt(int dpi) {
  static const auto parameters =
      LateCall<ParametersForDpiCall>(kLibrary, "SystemParametersInfoForDpi");
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
